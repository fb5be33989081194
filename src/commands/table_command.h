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
  std::filesystem::path output = {};  ///< the table's folder; the list's when it is empty
  bool keepGoing = false;  ///< leaves bad files out instead of ending the table with them
};
ExitCode RunExport(const ExportCommand& command, Storage& storage, const Console& console);

/// `orvex table`: makes a tidy table. Bad files are left out.
struct TableCommand {
  TidyTable table = TidyTable::questions;
  std::filesystem::path list = {};
  std::filesystem::path output = {};
  bool codebook = false;  ///< also writes the table of the variables
};
ExitCode RunTable(const TableCommand& command, Storage& storage, const Console& console);

}  // namespace orvex
