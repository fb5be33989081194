#pragma once

#include <filesystem>
#include <string>

#include "desk/services.h"

namespace orvex {

/// Lets the user choose a file, starting in the data folder. The folder of the chosen file becomes
/// the data folder. Returns an empty path when none was chosen; the data folder then stays.
std::filesystem::path ChooseFile(const Services& services, const std::string& filter);
/// Lets the user choose a file in the same way, but starting in `folder`.
std::filesystem::path ChooseFile(const Services& services, const std::string& filter,
                                 const std::filesystem::path& folder);

}  // namespace orvex
