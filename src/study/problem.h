#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "store/file_error.h"
#include "store/format_error.h"

namespace orvex {

/// Why a file could not be read, or only in part.
struct Problem {
  std::filesystem::path file;
  int line = 0;      ///< the line of `file`; 0 when the problem is not about one line
  std::string text;  ///< "expected the number of segments", or the system's cause

  /// "5-12-3.eps:7: expected the number of segments", safe to show on a terminal.
  std::string Text() const;
  /// "5-12-3.eps, line 7: expected the number of segments.", for a window.
  std::string Sentence() const;
};

/// A warning about a file that could be read.
inline Problem Warning(const std::filesystem::path& file, int line, const std::string& text) {
  return {file, line, "warning: " + text};
}

/// Runs `act`, which works on `file`. Returns the problem, or nothing when all went well.
template <typename Act>
std::optional<Problem> ProblemOf(const std::filesystem::path& file, Act act) {
  try {
    act();
  } catch (const FormatError& error) {
    const int field = error.Place().field;
    const std::string place = field > 0 ? "field " + std::to_string(field) + ": " : "";
    return Problem{file, error.Line(), place + error.Text()};
  } catch (const FileError& error) {
    return Problem{error.Path(), 0, error.Cause()};
  }
  return std::nullopt;
}

}  // namespace orvex
