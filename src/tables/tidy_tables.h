#pragma once

#include <string>
#include <string_view>

#include "store/eps_file.h"
#include "tables/table_export.h"

namespace orvex {

/// Tables for statistics programs: a header row of plain names, one row per question, segment or
/// episode, empty cells for what is missing, and the observation on every row.
enum class TidyTable { questions, segments, episodes };

/// "questions".
std::string_view NameOf(TidyTable table);

/// Appends the rows of an observation whose file has the base name `file`.
void AppendTidyRows(TidyTable table, std::string_view file, const EpsObservation& observation,
                    std::string& rows);

/// "questions.csv", from the episode files of a list.
TableKind TidyTableKind(TidyTable table, WarnOf warnOf);

/// "questions-codebook.csv": a row for each variable of the table, and for each value it may have.
std::string CodebookFileName(TidyTable table);
std::string Codebook(TidyTable table);

}  // namespace orvex
