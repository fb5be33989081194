#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "store/file_error.h"
#include "store/format_error.h"

namespace orvex {

/// Why a file could not be taken, or not wholly.
struct Problem {
  std::filesystem::path file;
  int line = 0;      ///< of the file; 0 when it is not about one of its lines
  std::string text;  ///< "expected the number of segments", or the system's cause
  int listLine = 0;  ///< of the list that names the file; 0 without a list

  /// "5-12-3.eps:7: expected the number of segments (line 2 of the list)".
  std::string Text() const {
    std::string place = file.string() + ":";
    if (line > 0) place += std::to_string(line) + ":";
    const std::string list =
        listLine > 0 ? " (line " + std::to_string(listLine) + " of the list)" : "";
    return place + " " + text + list;
  }
};

/// Runs `read`, which reads `file`; nothing when all went well.
template <typename Read>
std::optional<Problem> ProblemOf(const std::filesystem::path& file, Read read) {
  try {
    read();
  } catch (const FormatError& error) {
    return Problem{file, error.Line(), "expected " + error.Expected()};
  } catch (const FileError& error) {
    return Problem{file, 0, error.Cause()};
  }
  return std::nullopt;
}

}  // namespace orvex
