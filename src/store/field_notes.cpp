#include "store/field_notes.h"

#include <string_view>
#include <utility>

#include "store/durable_file.h"

namespace orvex {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// Turns LF into CR LF in a text that has no CR LF at all.
std::string WithLineEnds(const std::string& text) {
  if (text.find(kLineEnd) != std::string::npos) return text;
  std::string lines;
  for (const char c : text) {
    if (c == '\n') {
      lines += kLineEnd;
    } else {
      lines += c;
    }
  }
  return lines;
}

}  // namespace

FieldNotes ParseFieldNotes(std::string bytes) {
  const DecodedText file = Decode(std::move(bytes));
  FieldNotes notes = {.text = WithLineEnds(file.text), .encoding = file.encoding};
  if (notes.text.ends_with(kLineEnd)) notes.text.resize(notes.text.size() - kLineEnd.size());
  return notes;
}

FieldNotes ReadFieldNotes(const std::filesystem::path& path) {
  return ParseFieldNotes(ReadFile(path));
}

std::string FormatFieldNotes(const FieldNotes& notes) {
  return Encode(notes.text + std::string(kLineEnd), notes.encoding);
}

void WriteFieldNotes(Storage& storage, const std::filesystem::path& path, const FieldNotes& notes) {
  ReplaceFile(storage, path, FormatFieldNotes(notes));
}

}  // namespace orvex
