#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace orvex {

/// A file does not follow its format. `what()` reads "line 7: expected a number".
class FormatError : public std::runtime_error {
 public:
  FormatError(int line, std::string expected)
      : std::runtime_error("line " + std::to_string(line) + ": expected " + expected),
        line_(line),
        expected_(std::move(expected)) {}

  int Line() const { return line_; }  ///< counted from 1
  const std::string& Expected() const { return expected_; }

 private:
  int line_;
  std::string expected_;
};

}  // namespace orvex
