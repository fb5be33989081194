#pragma once

#include <filesystem>
#include <string>

#include "store/text_encoding.h"

namespace orvex {

class Storage;

/// For dialogs that choose a field-notes file.
inline constexpr const char* kNteFilter = "NOTE files (*.NTE)|*.NTE";

/// Field notes: lines separated by CR LF.
struct FieldNotes {
  std::string text;
  Encoding encoding = Encoding::utf8;  ///< how the file was spelled, and is spelled again
};

/// Reads the bytes of a field-notes file; the line end after the last line is not part of the
/// notes.
FieldNotes ParseFieldNotes(std::string bytes);
/// The same from a file. Throws FileError.
FieldNotes ReadFieldNotes(const std::filesystem::path& path);

/// The bytes of a field-notes file: the notes and one line end.
std::string FormatFieldNotes(const FieldNotes& notes);
/// Replaces the file at `path`. Throws FileError; the old file then stays.
void WriteFieldNotes(Storage& storage, const std::filesystem::path& path, const FieldNotes& notes);

}  // namespace orvex
