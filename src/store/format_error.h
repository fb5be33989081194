#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace orvex {

/// A place in a file, counted from 1.
struct FilePlace {
  int line = 1;
  int field = 0;  ///< within the line; 0 for the line as a whole

  /// "line 3, field 4".
  std::string Text() const {
    return "line " + std::to_string(line) + (field > 0 ? ", field " + std::to_string(field) : "");
  }
};

/// A file does not follow its format. `what()` reads "line 3, field 4: expected a number".
class FormatError : public std::runtime_error {
 public:
  /// `expected` is a noun phrase.
  FormatError(int line, const std::string& expected)
      : FormatError(FilePlace{line}, "expected " + expected) {}
  /// `text` is the message without the place.
  FormatError(FilePlace place, std::string text)
      : std::runtime_error(place.Text() + ": " + text), place_(place), text_(std::move(text)) {}

  int Line() const { return place_.line; }
  const FilePlace& Place() const { return place_; }
  const std::string& Text() const { return text_; }

 private:
  FilePlace place_;
  std::string text_;
};

}  // namespace orvex
