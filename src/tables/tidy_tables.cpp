#include "tables/tidy_tables.h"

#include <utility>

#include "store/eps_reader.h"
#include "study/reading_with_warnings.h"
#include "tables/csv.h"
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
    case TidyTable::questions:
      return "questions";
    case TidyTable::segments:
      return "segments";
    case TidyTable::episodes:
      break;
  }
  return "episodes";
}

void AppendTidyRows(TidyTable table, std::string_view file, const EpsObservation& observation,
                    std::string& rows) {
  Csv csv(rows);
  ForEachRow(table, file, observation, [&](const TidyRow& row) {
    for (const TidyColumn& column : ColumnsOf(table)) column.write(row, column.argument, csv);
    csv.EndLine();
  });
}

TableKind TidyTableKind(TidyTable table) {
  const auto append = [table](const std::filesystem::path& file, const std::string& name,
                              FileRows& rows) {
    ReadingWithWarnings events(rows.WarnsOf(FileWarning::About::content));
    const EpsObservation observation = ReadEpsFile(file, events);
    AppendTidyRows(table, name, observation, rows.text);
    WarnOfOtherNumbers(file, observation.header.identity, rows.WarnsOf(FileWarning::About::name));
  };
  return {.fileName = std::string(NameOf(table)) + ".csv",
          .files = FileKind::episodes,
          .header = Header(table),
          .append = append};
}

std::string CodebookFileName(TidyTable table) {
  return std::string(NameOf(table)) + "-codebook.csv";
}

std::string Codebook(TidyTable table) {
  std::string text;
  Csv csv(text);
  for (const char* name : {"variable", "label", "type", "value", "value_label"}) csv.Code(name);
  csv.EndLine();
  for (const TidyColumn& column : ColumnsOf(table)) {
    const auto line = [&](std::string_view value, std::string_view label) {
      csv.Code(column.name);
      csv.Text(column.label);
      csv.Code(column.type);
      csv.Code(value);
      csv.Text(label);
      csv.EndLine();
    };
    if (column.values.empty()) line("", "");
    for (const auto& [value, label] : column.values) line(value, label);
  }
  return text;
}

}  // namespace orvex
