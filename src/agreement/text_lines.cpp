#include "agreement/text_lines.h"

#include <algorithm>
#include <iterator>

namespace orvex {

void AppendLine(std::string& text, std::initializer_list<std::string_view> cells) {
  bool begun = false;
  for (const std::string_view cell : cells) {
    if (begun) text += '\t';
    begun = true;
    std::ranges::replace_copy_if(
        cell, std::back_inserter(text),
        [](char character) { return character == '\t' || character == '\n' || character == '\r'; },
        ' ');
  }
  text += '\n';
}

}  // namespace orvex
