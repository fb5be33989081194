#pragma once

#include <string>
#include <vector>

namespace orvex {

/// A line of a list file that names an observation.
struct ListLine {
  int number = 0;    ///< counted from 1, including empty lines
  std::string text;  ///< without blanks at its ends; not empty
};

/// Parses a list file. Skips empty lines. Throws FormatError when `bytes` are not text or belong to
/// another kind of file.
std::vector<ListLine> ParseList(std::string bytes);

}  // namespace orvex
