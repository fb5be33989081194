#pragma once

#include <array>
#include <string>
#include <string_view>

#include "tables/observation_content.h"
#include "tables/table_export.h"

namespace orvex {

/// Tables for statistics programs: a header row of plain names, then one row per observation,
/// survey, episode, segment or question. Every row names its observation; an empty cell is a
/// missing value.
enum class TidyTable { observations, survey, episodes, segments, questions };
inline constexpr std::array kTidyTables = {TidyTable::observations, TidyTable::survey,
                                           TidyTable::episodes, TidyTable::segments,
                                           TidyTable::questions};

/// The table's name on the command line and in file names: "questions".
std::string_view NameOf(TidyTable table);

/// Appends the rows of an observation, with their line ends.
void AppendTidyRows(TidyTable table, const ObservationContent& observation, std::string& rows);

/// The kind of table that joins episode or survey files into "questions.csv" or its siblings.
TableKind TidyTableKind(TidyTable table);

}  // namespace orvex
