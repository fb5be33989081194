#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// Replaces the file at `path`, or creates it, so that at every moment either the old or the new
/// content is on the disk, whole. A symbolic link stays a link: its target is replaced. An existing
/// file keeps its owner, as far as the user may give it, and its mode. Throws FileError; the old
/// file is then untouched, except when the very last step fails, the sync of the folder: the new
/// content is in place then, but a power cut might still bring the old one back.
void ReplaceFile(Storage& storage, const std::filesystem::path& path, std::string_view bytes);

/// The bytes of a file. Throws FileError; a folder, anything else that is not a regular file, and
/// a file of more than 512 MiB is an error.
std::string ReadFile(const std::filesystem::path& path);
/// The same, but no more than the first `most` bytes of a file of any size.
std::string ReadFileStart(const std::filesystem::path& path, std::size_t most);

/// Creates `folder` when it does not exist; its parent must. That it exists is on the disk then.
/// Throws FileError.
void EnsureFolder(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
