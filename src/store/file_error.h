#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "store/printable_text.h"

namespace orvex {

/// A file or folder could not be read, written or made. `what()` reads "<path>: <cause>",
/// fit for a terminal.
class FileError : public std::runtime_error {
 public:
  FileError(std::filesystem::path path, std::string cause)
      : std::runtime_error(Printable(path.native()) + ": " + cause),
        path_(std::move(path)),
        cause_(std::move(cause)) {}
  /// Takes the cause from `error`, a value of `errno`.
  FileError(std::filesystem::path path, int error)
      : FileError(std::move(path), std::generic_category().message(error)) {}

  const std::filesystem::path& Path() const { return path_; }
  const std::string& Cause() const { return cause_; }

 private:
  std::filesystem::path path_;
  std::string cause_;
};

}  // namespace orvex
