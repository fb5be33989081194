#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "store/durable_file.h"
#include "tables/file_rows.h"

namespace orvex {

/// A table while it is being made. It takes the place of an earlier one with `Commit`; until then,
/// or without it, that stays. All functions throw FileError.
class TableFile {
 public:
  virtual ~TableFile() = default;
  /// Adds the rows of a file, and returns how many they are.
  virtual std::size_t Add(const FileRows& rows) = 0;
  virtual void Commit() = 0;
};

/// A table that is a text.
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

}  // namespace orvex
