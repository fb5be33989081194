#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvex {

/// The words of a question in the order in which they were written, without case, accents and
/// punctuation. A text without any letter or figure is one word, so that equal texts have equal
/// words.
std::vector<std::u32string> QuestionWords(std::string_view text);

/// How much alike two words are, from 0 to 1, which is for equal ones: one may be cut short or
/// written without some of its letters ("auth.", "wht"), or be misspelt. Either may come first.
double WordLikeness(std::u32string_view one, std::u32string_view other);

}  // namespace orvex
