#pragma once

#include <filesystem>
#include <string>

#include "tables/tidy_tables.h"

namespace orvex {

/// SPSS syntax that reads the table at `tableFile`, beside which it is to lie: texts as wide as the
/// table needs them, dates and times as such, every variable and value with its label. Throws
/// FileError when the table cannot be read.
std::string SpssSyntax(TidyTable table, const std::filesystem::path& tableFile);

}  // namespace orvex
