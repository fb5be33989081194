#pragma once

#include <filesystem>
#include <set>
#include <vector>

#include "commands/console.h"
#include "tables/codebook.h"
#include "tables/export_form.h"
#include "tables/tidy_tables.h"

namespace orvex {

class Storage;

/// The name that stands for the standard output where a folder for a table is named.
inline constexpr const char* kStandardOutput = "-";

/// `orvex export`: makes EPSDATA.TXT or SURDATA.TXT.
struct ExportCommand {
  ExportKind kind = ExportKind::epsData;
  std::vector<std::filesystem::path> sources = {};  ///< folders, lists, files, "-"
  /// The folder for the table, or kStandardOutput. If it is empty, the table goes into
  /// the folder that is the only source, or that of the list that is; otherwise into the current
  /// folder.
  std::filesystem::path output = {};
  bool keepGoing = false;  ///< skip bad files instead of ending the table at the first one
};
ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console);

/// `orvex table`: makes tidy tables, skipping bad files. No table takes the place of an earlier one
/// before all of them are finished.
struct TableCommand {
  std::vector<TidyTable> tables = {};
  std::vector<std::filesystem::path> sources = {};
  std::filesystem::path output = {};
  /// Also write these codebooks for each table, which describe its variables.
  std::set<CodebookKind> codebooks = {};
  bool sqlite = false;  ///< all tables in one database instead, whatever `tables` says
};
ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console);

}  // namespace orvex
