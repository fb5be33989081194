#pragma once

#include <filesystem>

#include "reports/class_picture.h"
#include "study/file_numbers.h"

namespace orvex {

/// Reads an episode file, and the session log that belongs to it, into the picture of the class.
/// What is doubtful in them is passed to `warn`, which may be empty. Throws FileError and
/// FormatError when the episode file cannot be read.
ClassPicture ReadClassPicture(const std::filesystem::path& file, const Warn& warn);

}  // namespace orvex
