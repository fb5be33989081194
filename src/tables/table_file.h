#pragma once

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <string>

#include "store/durable_file.h"
#include "tables/file_rows.h"

namespace orvex {

/// A table while it is being made, complete with `Commit`. All functions throw FileError.
class TableFile {
 public:
  virtual ~TableFile() = default;
  /// Adds the rows of a file, and returns how many they are.
  virtual std::size_t Add(const FileRows& rows) = 0;
  virtual void Commit() = 0;
};

/// A text file. It takes the place of an earlier one with `Commit`; until then, or without it, that
/// stays.
class TextTable final : public TableFile {
 public:
  TextTable(Storage& storage, std::filesystem::path path, std::string header);

  std::size_t Add(const FileRows& rows) override;
  void Commit() override;

 private:
  void WriteOut();

  FileReplacement file_;
  std::string text_;  ///< complete rows that have not been written yet
};

/// A text on a stream, such as the standard output.
class StreamTable final : public TableFile {
 public:
  StreamTable(std::ostream& stream, const std::string& header);

  std::size_t Add(const FileRows& rows) override;
  void Commit() override;

 private:
  void Write(const std::string& text);

  std::ostream& stream_;
};

}  // namespace orvex
