#pragma once

#include <filesystem>
#include <vector>

#include "commands/console.h"

namespace orvex {

class Storage;

/// `orvex report --pdf`: all reports on a class in one file.
struct ReportPdfCommand {
  std::vector<std::filesystem::path> sources = {};  ///< folders, lists, files, "-"
  std::filesystem::path output = {};                ///< a folder; empty for the current one
};

/// Makes the files, "5-12-3.pdf", which replace earlier ones, and writes their names to
/// `console.out`. What could not be read or written is told on `console.err`. kFailed when
/// something is missing. Needs a QApplication.
ExitCode RunReportPdf(const ReportPdfCommand& command, Storage& storage, const Console& console);

}  // namespace orvex
