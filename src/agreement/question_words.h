#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvex {

/// What follows so many words does not say more about which question it is.
inline constexpr std::size_t kMostQuestionWords = 60;

/// The words of a question in the order in which they were written, without
/// case, accents and punctuation; no more than kMostQuestionWords. A text
/// without any letter or figure is one word, so that equal texts have equal
/// words.
std::vector<std::u32string> QuestionWords(std::string_view text);

/// A word that is compared with many others.
class ComparedWord {
 public:
  explicit ComparedWord(std::u32string_view text);

  /// How much alike two words are, from 0 to 1, which is for equal ones: one
  /// may be cut short or written without some of its letters ("auth.", "wht"),
  /// or be misspelt.
  double LikenessTo(const ComparedWord& other) const;

 private:
  std::u32string text_;
  std::uint64_t letters_ = 0;  ///< a bit for each letter; some letters share one
  bool hasFigure_ = false;
};

}  // namespace orvex
