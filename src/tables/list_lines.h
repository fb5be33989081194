#pragma once

#include <string>
#include <vector>

namespace orvex {

/// A line of a list file that names an observation.
struct ListLine {
  int number = 0;     ///< counted from 1, including empty lines
  std::string text;   ///< without blanks at its ends; not empty; UTF-8
  std::string bytes;  ///< the same as it stands in the file, which is not always UTF-8
};

/// Parses a list file. Skips empty lines. Throws FormatError when `bytes` are not text or belong to
/// another kind of file.
std::vector<ListLine> ParseList(const std::string& bytes);

}  // namespace orvex
