#include "tables/shared_columns.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tables/csv.h"

namespace orvex {
namespace {

/// Missing when the file has something else than a number there.
void WriteTypedNumber(const std::string& typed, Cells& cells) {
  if (const auto number = TypedSingle(typed)) {
    cells.Number(*number);
  } else {
    cells.Missing();
  }
}

template <std::string Identity::*member>
void WriteIdentity(const TidyRow& row, int, Cells& cells) {
  WriteTypedNumber(row.Header().identity.*member, cells);
}

template <std::string Identity::*member>
void WriteSurveyIdentity(const TidyRow& row, int, Cells& cells) {
  WriteTypedNumber(row.content.survey->identity.*member, cells);
}

using Write = decltype(TidyColumn::write);

Columns NumbersOfObservation(Write school, Write classNum, Write observation) {
  return {
      {"file", "The observation, as the list or the folder names it", ColumnType::text,
       [](const TidyRow& row, int, Cells& cells) { cells.Text(row.content.name); }},
      {"school", "School number", ColumnType::wholeNumber, school},
      {"class", "Class number", ColumnType::wholeNumber, classNum},
      {"observation", "Observation number", ColumnType::wholeNumber, observation},
  };
}

}  // namespace

Columns ObservationColumns() {
  Columns columns =
      NumbersOfObservation(WriteIdentity<&Identity::SchoolNum>, WriteIdentity<&Identity::ClassNum>,
                           WriteIdentity<&Identity::ObservNum>);
  Append(
      columns,
      {{"students", "Number of students present", ColumnType::wholeNumber,
        WriteIdentity<&Identity::NumStudents>},
       {"observer", "Initials of the observer", ColumnType::text,
        [](const TidyRow& row, int, Cells& cells) { cells.Text(row.Header().identity.Initials); }},
       {"date", "Date of the observation", ColumnType::date,
        [](const TidyRow& row, int, Cells& cells) {
          cells.Code(IsoDate(row.Header().ObservDate));
        }},
       {"start_time", "Time at which the main menu was opened before the class", ColumnType::time,
        [](const TidyRow& row, int, Cells& cells) { cells.Code(IsoTime(row.Header().StartTime)); }},
       {"class_start", "Time at which the class began, from its session log", ColumnType::time,
        [](const TidyRow& row, int, Cells& cells) {
          cells.Code(row.content.log ? IsoTime(row.content.log->start) : "");
        }}});
  return columns;
}

Columns SurveyObservationColumns() {
  return NumbersOfObservation(WriteSurveyIdentity<&Identity::SchoolNum>,
                              WriteSurveyIdentity<&Identity::ClassNum>,
                              WriteSurveyIdentity<&Identity::ObservNum>);
}

void WriteYesNo(bool yes, Cells& cells) {
  cells.Code(yes ? "1" : "0");
}

std::vector<ValueLabel> YesNoValues() {
  return {{"0", "No"}, {"1", "Yes"}};
}

std::string OfftaskLabel(std::string_view what) {
  return "Mean proportion of students off task, " + std::string(what) +
         "; 0 stands for no estimate, too";
}

void Append(Columns& columns, Columns more) {
  std::ranges::move(more, std::back_inserter(columns));
}

}  // namespace orvex
