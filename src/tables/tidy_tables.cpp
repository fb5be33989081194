#include "tables/tidy_tables.h"

#include <cstddef>
#include <utility>

#include "tables/episode_rows.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

void AppendRow(const std::vector<TidyColumn>& columns, const TidyRow& row, std::string& rows) {
  Csv csv(rows);
  for (const TidyColumn& column : columns) column.write(row, column.argument, csv);
  csv.EndLine();
}

void AppendRowsOfEpisode(TidyTable table, TidyRow row, std::string& rows) {
  const auto& columns = ColumnsOf(table);
  switch (table) {
    case TidyTable::questions:
      for (const questionInfo& question : row.episode.questions) {
        row.question = &question;
        ++row.number;
        AppendRow(columns, row, rows);
      }
      return;
    case TidyTable::segments:
      for (const SegmentData& segment : row.episode.segments) {
        row.segment = &segment;
        ++row.number;
        AppendRow(columns, row, rows);
      }
      return;
    case TidyTable::episodes:
      AppendRow(columns, row, rows);
      return;
  }
}

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
  int number = 0;
  for (const Episode& episode : observation.Episodes) {
    const auto spells = FindDialogicSpells(episode.questions);
    AppendRowsOfEpisode(table,
                        {.file = file,
                         .header = observation.header,
                         .episode = episode,
                         .spells = spells,
                         .episodeNumber = ++number},
                        rows);
  }
}

TableKind TidyTableKind(TidyTable table, WarnOf warnOf) {
  const auto append = [table, warnOf = std::move(warnOf)](const std::filesystem::path& file,
                                                          const std::string& name,
                                                          std::string& rows) {
    const Warn warn = [&](const std::string& warning) {
      if (warnOf) warnOf(file, warning);
    };
    ReadingWithWarnings events(warn);
    const EpsObservation observation = ReadEpsFile(file, events);
    AppendTidyRows(table, name, observation, rows);
    WarnOfOtherNumbers(file, observation.header.identity, warn);
  };
  return {.fileName = std::string(NameOf(table)) + ".csv",
          .extension = ".eps",
          .header = Header(table),
          .append = append};
}

std::string CodebookFileName(TidyTable table) {
  return std::string(NameOf(table)) + "-codebook.csv";
}

std::string Codebook(TidyTable table) {
  std::string text;
  Csv csv(text);
  csv.Code("variable").Code("label").Code("type").Code("value").Code("value_label").EndLine();
  for (const TidyColumn& column : ColumnsOf(table)) {
    const auto begin = [&]() -> Csv& {
      return csv.Code(column.name).Text(column.label).Code(column.type);
    };
    if (column.values.empty()) begin().Missing().Missing().EndLine();
    for (const auto& [value, label] : column.values) begin().Code(value).Text(label).EndLine();
  }
  return text;
}

}  // namespace orvex
