#pragma once

#include <filesystem>
#include <string>

#include "store/text_encoding.h"

namespace orvex {

class Storage;

/// Field notes: lines separated by CR LF.
struct FieldNotes {
  std::string text;
  Encoding encoding = Encoding::utf8;  ///< how the file was spelled, and is spelled again
};

/// Reads a field-notes file; the line end after the last line is not part of the notes. Throws
/// FileError.
FieldNotes ReadFieldNotes(const std::filesystem::path& path);

/// Replaces the field-notes file at `path` by `notes` and one line end. Throws FileError; the old
/// file then stays.
void WriteFieldNotes(Storage& storage, const std::filesystem::path& path, const FieldNotes& notes);

}  // namespace orvex
