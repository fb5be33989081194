#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "model/program.h"

namespace orvex {

/// School, class and observation number, as given by a file's name.
struct FileNumbers {
  std::string school;
  std::string classNum;
  std::string observation;
};
/// The numbers in ".../5-12-3.eps". Throws FileError when the name has fewer than two "-", or
/// characters that would break a table's columns.
FileNumbers NumbersOf(const std::filesystem::path& file);

/// A warning for a file whose identity line gives other numbers than its name. Nothing when
/// they agree, or when the name has no numbers.
std::optional<std::string> OtherNumbers(const std::filesystem::path& file,
                                        const Identity& identity);

/// Called with a warning about a file that could be read.
using Warn = std::function<void(const std::string& warning)>;

/// Passes the warning of `OtherNumbers`, if there is one, to `warn`, which may be empty.
void WarnOfOtherNumbers(const std::filesystem::path& file, const Identity& identity,
                        const Warn& warn);

}  // namespace orvex
