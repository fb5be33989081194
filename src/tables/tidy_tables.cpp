#include "tables/tidy_tables.h"

#include <utility>

#include "tables/csv.h"
#include "tables/observation_content.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

std::string Header(TidyTable table) {
  std::string header;
  Csv csv(header);
  for (const TidyColumn& column : ColumnsOf(table)) csv.Code(column.name);
  csv.EndLine();
  return header;
}

}  // namespace

std::string_view NameOf(TidyTable table) {
  switch (table) {
    case TidyTable::observations:
      return "observations";
    case TidyTable::survey:
      return "survey";
    case TidyTable::episodes:
      return "episodes";
    case TidyTable::segments:
      return "segments";
    case TidyTable::questions:
      break;
  }
  return "questions";
}

void AppendTidyRows(TidyTable table, const ObservationContent& observation, std::string& rows) {
  Csv csv(rows);
  ForEachRow(table, observation, [&](const TidyRow& row) {
    WriteRow(table, row, csv);
    csv.EndLine();
  });
}

TableKind TidyTableKind(TidyTable table) {
  const bool isOfSurveys = table == TidyTable::survey;
  const auto append = [table, isOfSurveys](const std::filesystem::path& file,
                                           const std::string& name, FileRows& rows) {
    ObservationContent content = {.name = name};
    if (isOfSurveys) {
      ReadSurveyFile(file, rows.notes, content);
    } else {
      ReadEpisodeFile(file, rows.notes, content);
      if (table == TidyTable::observations) ReadSurveyOf(file, rows.notes, content);
    }
    AppendTidyRows(table, content, rows.text);
  };
  return {.fileName = std::string(NameOf(table)) + ".csv",
          .files = isOfSurveys ? FileKind::survey : FileKind::episodes,
          .header = Header(table),
          .append = append};
}

}  // namespace orvex
