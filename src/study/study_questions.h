#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/question_info.h"
#include "study/question_block.h"
#include "study/question_search.h"

namespace orvex {

struct StudyRow;

/// A question of a study.
struct QuestionRow {
  const StudyRow* observation = nullptr;  ///< the one it was asked in
  std::string_view text;
  DimensionTexts codes;  ///< letters, and who answers it
  int episode = 0;       ///< counted from 1
  int number = 0;        ///< within the episode, counted from 1
  int activity = 0;      ///< of the segment it was asked in; kNoActivity where that is not known
};

/// The questions of a study's observations, in the order of the observations' names. A row and its
/// texts hold until the study's next Tick.
class StudyQuestions {
 public:
  /// The number of questions shown, and the one at a position, counted from 0.
  std::size_t Count() const { return starts_.empty() ? 0 : starts_.back(); }
  QuestionRow Row(std::size_t position) const;
  /// Where a question is shown; nothing when it is not.
  std::optional<std::size_t> Find(const std::string& observation, int episode, int number) const;
  /// How many questions there are, shown or not.
  std::size_t All() const { return all_; }
  /// "12 of 500,000 questions".
  std::string CountText() const;

  const std::string& Filter() const { return filter_; }
  /// Shows the questions that `filter` finds. See QuestionSearch for what it may say.
  void SetFilter(std::string filter);
  /// What is wrong with the filter; "" when nothing is.
  const std::string& FilterTrouble() const { return search_.Trouble(); }

  // For the study: it tells of the observations that come, change and go, by their keys. What it
  // has told shows after Arrange. `row` must stay where it is.
  void Put(const std::string& key, const StudyRow& row, QuestionBlock questions);
  void Drop(const std::string& key);
  void Arrange();

 private:
  struct Source {
    std::string key;
    const StudyRow* row;
    QuestionBlock questions;
    std::vector<std::uint32_t> found;  ///< the questions that the search finds
  };
  void Search(Source& source) const;
  void NoteChange(const std::string& key);

  using Sources = std::map<std::string, Source>;

  Sources sources_;
  std::vector<Sources::node_type> dropped_;  ///< until `shown_` no longer has them
  std::string filter_;
  QuestionSearch search_;
  std::size_t all_ = 0;
  std::optional<std::string> changedFrom_;  ///< the first key that Arrange has to look at
  std::vector<const Source*> shown_;        ///< those in which something was found
  std::vector<std::size_t> starts_;         ///< the position behind the last question of each
};

}  // namespace orvex
