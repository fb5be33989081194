#pragma once

#include <filesystem>
#include <vector>

#include "commands/console.h"

namespace orvex {

/// `orvex report`: the time summary of each episode file, and the statistics and the plot of
/// each of its episodes. With `json`, writes one line per file: an object that also holds the
/// file's contents and the observation's survey.
struct ReportCommand {
  std::vector<std::filesystem::path> sources = {};  ///< folders, lists, files, "-"
  bool json = false;
};
ExitCode RunReport(const ReportCommand& command, const Console& console);

}  // namespace orvex
