#pragma once

#include <filesystem>
#include <vector>

#include "commands/console.h"

namespace orvex {

/// `orvex check`: names every question that is not fully coded, "5-12-3.eps:2:7: missing Uptake",
/// and every statement of a survey that has not been rated, and counts them. `sources` are folders,
/// lists, files, "-".
ExitCode RunCheck(const std::vector<std::filesystem::path>& sources, const Console& console);

}  // namespace orvex
