#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvex {

/// The text with its Latin letters in lower case, as UTF-8 of the same length; to be searched
/// without regard to case.
std::string Folded(std::string_view text);

/// A word that is searched for, folded. What stands between double quotes is one word, blanks
/// included.
struct Word {
  std::string text;
  bool quoted = false;
};
std::vector<Word> WordsOf(std::string_view text);

}  // namespace orvex
