#pragma once

#include <filesystem>
#include <string>

#include "store/services.h"

namespace orvex {

/// Lets the user choose a file, beginning in the data folder. Whatever comes of it, the data folder
/// is then the one that the dialog ended in. Empty when no file was chosen.
std::filesystem::path ChooseFile(const Services& services, const std::string& filter);

}  // namespace orvex
