#pragma once

#include <filesystem>
#include <string_view>

namespace orvex {

class Storage;

/// Replaces the field-notes file at `path` by `notes`, whose lines are separated by CR LF, and one
/// line end. Throws FileError; the old file then stays.
void WriteFieldNotes(Storage& storage, const std::filesystem::path& path, std::string_view notes);

}  // namespace orvex
