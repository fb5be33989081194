#include "study/tabbed_text.h"

#include <algorithm>
#include <iterator>

namespace orvex {

void AddTabbedLine(std::string& text, const std::vector<std::string>& cells) {
  bool isFirst = true;
  for (const std::string& cell : cells) {
    if (!isFirst) text += '\t';
    isFirst = false;
    std::ranges::replace_copy_if(
        cell, std::back_inserter(text), [](char c) { return c == '\t' || c == '\r' || c == '\n'; },
        ' ');
  }
  text += '\n';
}

}  // namespace orvex
