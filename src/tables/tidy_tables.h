#pragma once

#include <string>
#include <string_view>

#include "store/eps_file.h"
#include "tables/table_export.h"

namespace orvex {

/// Tables for statistics programs: a header row of plain names, then one row per question,
/// segment or episode. Every row names its observation; an empty cell is a missing value.
enum class TidyTable { questions, segments, episodes };

/// The table's name on the command line and in file names: "questions".
std::string_view NameOf(TidyTable table);

/// Appends the rows of an observation. `file` is the base name of its file.
void AppendTidyRows(TidyTable table, std::string_view file, const EpsObservation& observation,
                    std::string& rows);

/// The kind of table that joins episode files into "questions.csv" or its siblings.
TableKind TidyTableKind(TidyTable table);

/// "questions-codebook.csv", and its text: a row for each variable of the table and for each
/// value it may have.
std::string CodebookFileName(TidyTable table);
std::string Codebook(TidyTable table);

}  // namespace orvex
