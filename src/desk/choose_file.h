#pragma once

#include <filesystem>
#include <string>

#include "desk/services.h"

namespace orvex {

/// Lets the user choose a file, beginning in the data folder. The folder of the file that was
/// chosen is the data folder then. Empty when none was chosen; the data folder stays.
std::filesystem::path ChooseFile(const Services& services, const std::string& filter);
/// The same, beginning in `folder`.
std::filesystem::path ChooseFile(const Services& services, const std::string& filter,
                                 const std::filesystem::path& folder);

}  // namespace orvex
