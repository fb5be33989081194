#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "store/durable_file.h"

struct sqlite3;
struct sqlite3_stmt;

namespace orvex {

class Storage;

/// A new SQLite database, which gathers in a temporary file and replaces the one at `path` with
/// `Commit`; until then, or without it, an earlier one stays. Its memory does not grow with what is
/// put into it. All functions throw FileError.
class SqliteDatabase {
 public:
  SqliteDatabase(Storage& storage, std::filesystem::path path);
  ~SqliteDatabase();
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;

  /// Runs a statement that has no result.
  void Execute(const std::string& sql);
  /// Brings everything to the disk and moves the database into place. Statements must be gone.
  void Commit();

 private:
  friend class SqliteStatement;

  /// Throws FileError unless `result` is one of success.
  void Require(int result);
  void Close();

  std::filesystem::path path_;
  FileReplacement file_;
  sqlite3* database_ = nullptr;
};

/// A statement that is run again and again with other values.
class SqliteStatement {
 public:
  SqliteStatement(SqliteDatabase& database, const std::string& sql);
  ~SqliteStatement();
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  // Each gives the next placeholder its value.
  void Bind(std::int64_t number);
  /// The column's type says what becomes of it: "2.5" is a number in a column of numbers.
  void Bind(std::string_view text);
  void BindNull();

  /// Runs the statement with the values bound since the last run.
  void Run();

 private:
  SqliteDatabase& database_;
  sqlite3_stmt* statement_ = nullptr;
  int bound_ = 0;
};

}  // namespace orvex
