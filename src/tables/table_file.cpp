#include "tables/table_file.h"

#include <algorithm>
#include <utility>

namespace orvex {

TextTable::TextTable(Storage& storage, std::filesystem::path path, std::string header)
    : file_(storage, std::move(path)), text_(std::move(header)) {}

std::size_t TextTable::Add(const FileRows& rows) {
  constexpr std::size_t kPortion = std::size_t{256} * 1024;  // collected before it is written
  text_ += rows.text;
  if (text_.size() >= kPortion) WriteOut();
  return static_cast<std::size_t>(std::ranges::count(rows.text, '\n'));
}

void TextTable::WriteOut() {
  file_.Write(text_);
  text_.clear();
}

void TextTable::Commit() {
  WriteOut();
  file_.Commit();
}

}  // namespace orvex
