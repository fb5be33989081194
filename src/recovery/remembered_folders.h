#pragma once

#include <filesystem>
#include <vector>

namespace orvex {

class Storage;

/// The file in the program folder that names the folders in which work may lie unfinished, a path a
/// line: the data folder of every class that was begun, and whatever else is remembered.
std::filesystem::path RememberedFoldersPath(const std::filesystem::path& programFolder);

/// Has `folder` looked through for unfinished work at every later start. To be called when work
/// begins of which something may be kept there; a folder that is remembered already costs no write.
/// When there are too many, those go first in which nothing is kept any more; one that is gone (a
/// stick) stays for when it comes back. Without a program folder that can be written nothing is
/// remembered, and nobody is told: work is found all the same in the data folder.
void RememberFolder(Storage& storage, const std::filesystem::path& programFolder,
                    const std::filesystem::path& folder);

/// The remembered folders, those that are gone included, the newest first.
std::vector<std::filesystem::path> RememberedFolders(const std::filesystem::path& programFolder);

}  // namespace orvex
