#pragma once

#include <filesystem>
#include <vector>

#include "commands/console.h"

namespace orvex {

/// `orvex report`: the time summary of each episode file, and the statistics and the plot of each
/// of its episodes. With `json` each file is one line, an object that also holds what was read, and
/// the survey that lies beside the file.
struct ReportCommand {
  std::vector<std::filesystem::path> files = {};
  bool json = false;
};
ExitCode RunReport(const ReportCommand& command, const Console& console);

}  // namespace orvex
