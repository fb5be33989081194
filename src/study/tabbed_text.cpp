#include "study/tabbed_text.h"

#include <algorithm>
#include <iterator>

namespace orvex {
namespace {

template <typename Cells>
void AddLine(std::string& text, const Cells& cells) {
  bool isFirst = true;
  for (const std::string_view cell : cells) {
    if (!isFirst) text += '\t';
    isFirst = false;
    std::ranges::replace_copy_if(
        cell, std::back_inserter(text), [](char c) { return c == '\t' || c == '\r' || c == '\n'; },
        ' ');
  }
  text += '\n';
}

}  // namespace

void AddTabbedLine(std::string& text, const std::vector<std::string>& cells) {
  AddLine(text, cells);
}

void AddTabbedLine(std::string& text, std::initializer_list<std::string_view> cells) {
  AddLine(text, cells);
}

}  // namespace orvex
