#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/activities.h"
#include "model/episode.h"

namespace orvex {

/// The codes of a question, packed so that many of them can be compared at once: for each dimension
/// with letters, the position of the letter from 1 on, or 0.
using PackedCodes = std::uint16_t;

/// A code that a question must have. The letter "-" stands for none.
struct CodeCondition {
  PackedCodes mask = 0;
  PackedCodes value = 0;

  bool HoldsFor(PackedCodes codes) const { return (codes & mask) == value; }
};
/// The condition that a question has this letter, in upper case, in this dimension; `letter` must
/// be one of the dimension's, or "-".
CodeCondition ConditionOf(Dimension dimension, char letter);

/// The questions of one observation. They take little more memory than twice their text.
class QuestionBlock {
 public:
  struct Question {
    std::uint32_t text = 0;        ///< where its text begins
    std::uint32_t respondent = 0;  ///< where the name of who answers begins, after a line end
    std::uint16_t episode = 0;     ///< counted from 1
    std::uint16_t number = 0;      ///< within the episode, counted from 1
    PackedCodes codes = 0;
    std::int16_t activity = kNoActivity;  ///< of the segment it was asked in, if that is known
  };

  explicit QuestionBlock(const EpisodeList& episodes);

  std::size_t Count() const { return questions_.size() - 1; }
  const Question& At(std::size_t i) const { return questions_[i]; }
  std::string_view Text(std::size_t i) const;
  std::string_view Respondent(std::size_t i) const;
  /// The letter of the question in `dimension`; "" when there is none.
  std::string_view LetterOf(std::size_t i, Dimension dimension) const;
  /// The text and the name of who answers, folded.
  std::string_view Searched(std::size_t i) const;

 private:
  void Add(const Episode& episode, std::size_t number, std::size_t question);

  std::string texts_;
  std::string folded_;               ///< `texts_`, folded
  std::vector<Question> questions_;  ///< and one more, whose text begins at the end
};

}  // namespace orvex
