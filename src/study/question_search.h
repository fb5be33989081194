#pragma once

#include <bitset>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/activities.h"
#include "study/question_block.h"

namespace orvex {

/// A search for questions, as it is typed: words that must occur in the text of a question or in
/// the name of who answers it; codes, "source S" or "uptake -" (not coded); "activity 5" or
/// "activity discussion"; "episode 2". A dimension may be named by its label, its variable or the
/// beginning of either. What stands between double quotes is searched for as it is.
class QuestionSearch {
 public:
  QuestionSearch() = default;
  explicit QuestionSearch(std::string_view typed);

  /// What is wrong with what was typed; "" when nothing is. Nothing is found then.
  const std::string& Trouble() const { return trouble_; }
  bool Passes(const QuestionBlock& questions, std::size_t i) const;

 private:
  std::string trouble_;
  std::vector<std::string> words_;
  std::vector<CodeCondition> codes_;
  std::optional<std::bitset<kActivityCount + 1>> activities_;  ///< by number
  std::optional<int> episode_;

  friend class QuestionSearchParser;
};

}  // namespace orvex
