#include "tables/table_file.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "store/file_error.h"

namespace orvex {
namespace {

std::size_t CountRows(const FileRows& rows) {
  return static_cast<std::size_t>(std::ranges::count(rows.text, '\n'));
}

}  // namespace

TextTable::TextTable(Storage& storage, std::filesystem::path path, std::string header)
    : file_(storage, std::move(path)), text_(std::move(header)) {}

std::size_t TextTable::Add(const FileRows& rows) {
  constexpr std::size_t kPortion = std::size_t{256} * 1024;  // collected before it is written
  text_ += rows.text;
  if (text_.size() >= kPortion) WriteOut();
  return CountRows(rows);
}

void TextTable::WriteOut() {
  file_.Write(text_);
  text_.clear();
}

void TextTable::Commit() {
  WriteOut();
  file_.Commit();
}

StreamTable::StreamTable(std::ostream& stream, const std::string& header) : stream_(stream) {
  Write(header);
}

std::size_t StreamTable::Add(const FileRows& rows) {
  Write(rows.text);
  return CountRows(rows);
}

void StreamTable::Commit() {
  stream_.flush();
  Write("");
}

void StreamTable::Write(const std::string& text) {
  stream_ << text;
  if (!stream_) throw FileError("standard output", "it could not be written");
}

}  // namespace orvex
