#include "tables/survey_columns.h"

#include <cstddef>
#include <cstdint>

#include "model/survey_scheme.h"
#include "tables/shared_columns.h"

namespace orvex {
namespace {

std::string ItemName(std::size_t group, std::size_t item) {
  const SurveyGroup& scheme = SurveyGroups()[group];
  return std::string(scheme.name) + "_" + std::string(scheme.items[item].name);
}

std::string ItemLabel(std::size_t group, std::size_t item) {
  const SurveyGroup& scheme = SurveyGroups()[group];
  const std::string before = group < static_cast<std::size_t>(kTypesOfWritingGroup)
                                 ? ""
                                 : std::string(kTypesOfWriting) + " ";
  return before + std::string(scheme.caption) + " " + std::string(scheme.items[item].text);
}

/// The items count from 0 through all groups.
void WriteItem(const TidyRow& row, int number, Cells& cells) {
  auto item = static_cast<std::size_t>(number);
  std::size_t group = 0;
  while (item >= SurveyGroups()[group].items.size()) item -= SurveyGroups()[group++].items.size();
  WriteYesNo(row.content.survey->answers.checks[group].test(item), cells);
}

Columns ItemColumns() {
  Columns columns;
  int number = 0;
  for (std::size_t group = 0; group < SurveyGroups().size(); ++group) {
    for (std::size_t item = 0; item < SurveyGroups()[group].items.size(); ++item) {
      columns.push_back({ItemName(group, item), ItemLabel(group, item), ColumnType::code, WriteItem,
                         number++, YesNoValues()});
    }
  }
  return columns;
}

void WriteStatement(const TidyRow& row, int number, Cells& cells) {
  const auto statement = static_cast<std::size_t>(number);
  const std::int16_t rating = row.content.survey->answers.ratings[statement];
  if (rating == kUncoded) {
    cells.Missing();
  } else {
    cells.Number(std::int64_t{SurveyStatements()[statement].Value(rating)});
  }
}

std::vector<ValueLabel> ValuesOf(const SurveyStatement& statement) {
  std::vector<ValueLabel> values;
  for (int button = 0; button < statement.Buttons(); ++button) {
    const int value = statement.Value(button);
    values.push_back({std::to_string(value), statement.Meaning(button), value == kDoesNotApply});
  }
  return values;
}

Columns StatementColumns() {
  Columns columns;
  for (const SurveyStatement& statement : SurveyStatements()) {
    columns.push_back({std::string(statement.variable), std::string(statement.text),
                       ColumnType::code, WriteStatement, static_cast<int>(columns.size()),
                       ValuesOf(statement)});
  }
  return columns;
}

}  // namespace

Columns SurveyColumns() {
  Columns columns = SurveyObservationColumns();
  Append(columns, ItemColumns());
  Append(columns, {{ItemName(0, kOtherItem) + "_text", "The text of: " + ItemLabel(0, kOtherItem),
                    ColumnType::text, [](const TidyRow& row, int, Cells& cells) {
                      cells.Text(row.content.survey->answers.other);
                    }}});
  Append(columns, StatementColumns());
  return columns;
}

}  // namespace orvex
