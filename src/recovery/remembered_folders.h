#pragma once

#include <filesystem>
#include <vector>

namespace orvex {

class Storage;

/// The file in the program folder that lists the folders in which unfinished work may lie, one path
/// per line: the data folder of every class that was begun, and the folders of edited files.
std::filesystem::path RememberedFoldersPath(const std::filesystem::path& programFolder);

/// Has `folder` searched for unfinished work at every later start. To be called when work begins of
/// which something may be kept there; a folder that is already remembered costs no write. When
/// there are too many folders, those where nothing is kept go first; a folder that is missing (on a
/// stick) stays for when it comes back. If the program folder cannot be written, nothing is
/// remembered and nobody is told: work in the data folder is still found.
void RememberFolder(Storage& storage, const std::filesystem::path& programFolder,
                    const std::filesystem::path& folder);

/// The remembered folders, newest first. Some may no longer exist.
std::vector<std::filesystem::path> RememberedFolders(const std::filesystem::path& programFolder);

}  // namespace orvex
