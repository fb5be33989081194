#pragma once

#include <filesystem>
#include <string>

#include "store/text_encoding.h"

namespace orvex {

class Storage;

/// The filter of dialogs that choose a field-notes file.
inline constexpr const char* kNteFilter = "NOTE files (*.NTE)|*.NTE";

/// Field notes. CR LF separates their lines.
struct FieldNotes {
  std::string text;
  Encoding encoding = Encoding::utf8;  ///< how the file was encoded, and is written again
};

/// Reads the bytes of a field-notes file. The line end after the last line is not part of the
/// notes.
FieldNotes ParseFieldNotes(std::string bytes);
/// Reads a field-notes file. Throws FileError.
FieldNotes ReadFieldNotes(const std::filesystem::path& path);

/// The bytes of a field-notes file: the notes and a final line end.
std::string FormatFieldNotes(const FieldNotes& notes);
/// Replaces the file at `path` as ReplaceFile does. Throws FileError.
void WriteFieldNotes(Storage& storage, const std::filesystem::path& path, const FieldNotes& notes);

}  // namespace orvex
