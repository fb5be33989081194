#pragma once

#include <string>

#include "tables/tidy_tables.h"

namespace orvex {

/// A script in R that reads the table which lies beside it into a data frame of the table's name:
/// codes as factors with their labels, dates as dates, every variable with its label.
std::string RScript(TidyTable table);

}  // namespace orvex
