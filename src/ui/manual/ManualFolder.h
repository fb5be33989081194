#pragma once

#include <filesystem>

namespace orvex {

/// The folder of the manual's chapters, found from the folder of the executable: beside an
/// installed program, or in the source tree that the program was built in. Empty when it is in
/// neither.
std::filesystem::path ManualFolder(const std::filesystem::path& executableFolder);

}  // namespace orvex
