#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>

#include "tables/sqlite_database.h"
#include "tables/table_export.h"
#include "tables/table_file.h"
#include "tables/tidy_tables.h"

namespace orvex {

/// All tidy tables and their codebook in one SQLite database. Each row of the tables has an `id`;
/// rows of episodes and surveys name their observation by `observation_id`, rows of segments and
/// questions their episode by `episode_id`. Variables and values are those of the tables in files,
/// except that a text has no apostrophe in front of what looks like a formula; what is missing is
/// NULL.
class SqliteTables final : public TableFile {
 public:
  /// Throws FileError, as all functions do.
  SqliteTables(Storage& storage, std::filesystem::path path);

  std::size_t Add(const FileRows& rows) override;
  void Commit() override;

 private:
  /// Adds the rows of a table, and returns how many they are. `bindParent` says which row of
  /// another table a row belongs to.
  template <typename BindParent>
  std::size_t AddRows(TidyTable table, const ObservationContent& content, BindParent bindParent);
  std::int64_t& LastId(TidyTable table) { return lastIds_[static_cast<std::size_t>(table)]; }
  void AddCodebook();

  SqliteDatabase database_;
  /// The statement that adds a row, and the id of the row added last, by table.
  std::array<std::unique_ptr<SqliteStatement>, kTidyTables.size()> insert_;
  std::array<std::int64_t, kTidyTables.size()> lastIds_{};
};

/// "study.sqlite", made from episode files and the surveys that belong to them.
TableKind SqliteTableKind();

}  // namespace orvex
