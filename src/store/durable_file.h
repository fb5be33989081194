#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// Replaces the file at `path`, or creates it, so that at every moment either the old or the new
/// content is on the disk, whole. A symbolic link stays a link: its target is replaced. An existing
/// file keeps its owner and mode. Throws FileError; the old file is then untouched.
void ReplaceFile(Storage& storage, const std::filesystem::path& path, std::string_view bytes);

/// The bytes of a file. Throws FileError; a folder, and anything else that is not a regular file,
/// is an error.
std::string ReadFile(const std::filesystem::path& path);

/// Creates `folder` when it does not exist; its parent must. Throws FileError.
void EnsureFolder(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
