#pragma once

#include <filesystem>

#include "commands/console.h"
#include "tables/export_form.h"
#include "tables/tidy_tables.h"

namespace orvex {

class Storage;

/// `orvex export`: makes EPSDATA.TXT or SURDATA.TXT.
struct ExportCommand {
  ExportKind kind = ExportKind::epsData;
  std::filesystem::path list = {};
  std::filesystem::path output = {};  ///< the folder for the table; empty for the list's folder
  bool keepGoing = false;  ///< skip bad files instead of ending the table at the first one
};
ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console);

/// `orvex table`: makes a tidy table, skipping bad files.
struct TableCommand {
  TidyTable table = TidyTable::questions;
  std::filesystem::path list = {};
  std::filesystem::path output = {};
  bool codebook = false;  ///< also write the codebook, which describes the table's variables
};
ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console);

}  // namespace orvex
