#include "tables/observation_columns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "model/activities.h"
#include "model/clock.h"
#include "tables/code_counts.h"
#include "tables/shared_columns.h"

namespace orvex {
namespace {

constexpr double kSecondsPerMinute = 60;

/// A share of questions, from 0 to 1.
struct Share {
  std::string_view variable;
  std::string_view label;
  std::array<int CodeCounts::*, 2> counted;  ///< their sum; the second may be null
  int CodeCounts::*of;
};
constexpr auto kShares = std::to_array<Share>({
    {"share_student",
     "Share of student questions in all questions",
     {&CodeCounts::StudentQ},
     &CodeCounts::Total},
    {"share_authentic_teacher",
     "Share of authentic questions in the teacher questions",
     {&CodeCounts::AuthTeacher},
     &CodeCounts::TeacherQ},
    {"share_authentic_student",
     "Share of authentic questions in the student questions",
     {&CodeCounts::AuthStudent},
     &CodeCounts::StudentQ},
    {"share_teacher_higher_order",
     "Share of higher-order questions in the teacher questions",
     {&CodeCounts::HigherLevel},
     &CodeCounts::TeacherQ},
    {"share_teacher_unanswered",
     "Share of questions without a response in the teacher questions",
     {&CodeCounts::NoResponse},
     &CodeCounts::TeacherQ},
    {"share_uptake",
     "Share of questions with test or authentic uptake in the questions with a response",
     {&CodeCounts::UptakeTest, &CodeCounts::UptakeAuthentic},
     &CodeCounts::Responded},
    {"share_elaborated",
     "Share of elaborated responses in the questions with a response",
     {&CodeCounts::Elaborated},
     &CodeCounts::Responded},
});

/// `part` of `whole`, which is undefined for an empty whole. The digits of a single are enough for
/// it, and it stays short.
void WriteRatio(double part, double whole, Cells& cells) {
  if (whole == 0) {
    cells.Missing();
  } else {
    cells.Number(static_cast<float>(part / whole));
  }
}

void WriteMinutes(double seconds, Cells& cells) {
  WriteRatio(seconds, kSecondsPerMinute, cells);
}

void WriteShare(const TidyRow& row, int number, Cells& cells) {
  const Share& share = kShares[static_cast<std::size_t>(number)];
  const CodeCounts& counts = row.summary->counts;
  int counted = 0;
  for (const auto count : share.counted) counted += count == nullptr ? 0 : counts.*count;
  WriteRatio(counted, counts.*share.of, cells);
}

void WriteCodeCount(const TidyRow& row, int number, Cells& cells) {
  const auto count = kCodeCounts[static_cast<std::size_t>(number)].count;
  cells.Number(std::int64_t{row.summary->counts.*count});
}

template <int ObservationSummary::*member>
void WriteSummed(const TidyRow& row, int, Cells& cells) {
  cells.Number(std::int64_t{row.summary->*member});
}

void WriteActivityMinutes(const TidyRow& row, int activity, Cells& cells) {
  WriteMinutes(row.summary->times[static_cast<std::size_t>(activity - 1)], cells);
}

void WriteGroupMinutes(const TidyRow& row, int group, Cells& cells) {
  double seconds = 0;
  for (const Activity& activity : kActivities) {
    if (static_cast<int>(activity.group) != group) continue;
    seconds += row.summary->times[static_cast<std::size_t>(activity.number - 1)];
  }
  WriteMinutes(seconds, cells);
}

void WriteOfftask(const TidyRow& row, int position, Cells& cells) {
  cells.Number(row.Header().ActivityOfftask[static_cast<std::size_t>(position)]);
}

void WriteEstimates(const TidyRow& row, int position, Cells& cells) {
  WriteNumberOf(
      row.content.log,
      [position](const LogFacts& log) {
        return std::int64_t{log.estimates[static_cast<std::size_t>(position)]};
      },
      cells);
}

Columns CountColumns() {
  Columns columns;
  for (std::size_t i = 0; i < kCodeCounts.size(); ++i) {
    columns.push_back({std::string(kCodeCounts[i].variable), std::string(kCodeCounts[i].label),
                       ColumnType::wholeNumber, WriteCodeCount, static_cast<int>(i)});
  }
  return columns;
}

Columns RateColumns() {
  Columns columns = {{"questions_per_minute", "Questions per minute of the class",
                      ColumnType::number, [](const TidyRow& row, int, Cells& cells) {
                        WriteRatio(row.summary->counts.Total * kSecondsPerMinute,
                                   row.summary->seconds, cells);
                      }}};
  for (std::size_t i = 0; i < kShares.size(); ++i) {
    columns.push_back({std::string(kShares[i].variable), std::string(kShares[i].label),
                       ColumnType::number, WriteShare, static_cast<int>(i)});
  }
  return columns;
}

Columns MinuteColumns() {
  Columns columns;
  for (std::size_t i = 0; i < kActivityGroups.size(); ++i) {
    columns.push_back({"minutes_" + std::string(kActivityGroups[i].name),
                       "Minutes of " + std::string(kActivityGroups[i].label), ColumnType::number,
                       WriteGroupMinutes, static_cast<int>(i)});
  }
  for (const Activity& activity : kActivities) {
    columns.push_back({"minutes_" + TwoDigits(activity.number),
                       "Minutes of " + std::string(activity.name), ColumnType::number,
                       WriteActivityMinutes, activity.number});
  }
  return columns;
}

/// The means of the estimates and their numbers, called after the activity that they are of.
Columns EstimateColumns() {
  Columns columns = {
      {"offtask_weighted",
       OfftaskLabel("the means of the episodes with questions, weighted by their length"),
       ColumnType::number, [](const TidyRow& row, int, Cells& cells) {
         WriteNumberOf(
             row.summary->offtask, [](double mean) { return static_cast<float>(mean); }, cells);
       }}};
  Columns numbers = {{"estimates", "Number of off-task estimates, from the session log",
                      ColumnType::wholeNumber, [](const TidyRow& row, int, Cells& cells) {
                        WriteNumberOf(
                            row.content.log,
                            [](const LogFacts& log) { return std::int64_t{log.Estimates()}; },
                            cells);
                      }}};
  for (const Activity& activity : kActivities) {
    const auto position = OfftaskPosition(activity.number);
    if (!position) continue;
    const std::string name(activity.name);
    const std::string number = TwoDigits(activity.number);
    const int argument = static_cast<int>(*position);
    columns.push_back(
        {"offtask_" + number, OfftaskLabel(name), ColumnType::number, WriteOfftask, argument});
    numbers.push_back({"estimates_" + number, "Number of off-task estimates: " + name,
                       ColumnType::wholeNumber, WriteEstimates, argument});
  }
  Append(columns, std::move(numbers));
  return columns;
}

Columns SurveyFileColumns() {
  return {{"survey", "There is a survey", ColumnType::code,
           [](const TidyRow& row, int, Cells& cells) { WriteYesNo(row.content.hasSurvey, cells); },
           0, YesNoValues()},
          {"statements_open", "Statements of the survey without a rating", ColumnType::wholeNumber,
           [](const TidyRow& row, int, Cells& cells) {
             WriteNumberOf(
                 row.content.survey,
                 [](const SurFile& survey) { return std::int64_t{survey.answers.Open()}; }, cells);
           }}};
}

}  // namespace

Columns ClassColumns() {
  using S = ObservationSummary;
  Columns columns = ObservationColumns();
  Append(
      columns,
      {{"seconds", "Length in seconds", ColumnType::wholeNumber,
        [](const TidyRow& row, int, Cells& cells) { cells.Seconds(row.summary->seconds); }},
       {"episodes", "Number of episodes", ColumnType::wholeNumber, WriteSummed<&S::episodes>},
       {"segments", "Number of segments", ColumnType::wholeNumber, WriteSummed<&S::segments>},
       {"spells", "Number of dialogic spells", ColumnType::wholeNumber, WriteSummed<&S::spells>}});
  Append(columns, CountColumns());
  Append(columns, {{"not_fully_coded", "Questions of which something is missing",
                    ColumnType::wholeNumber, WriteSummed<&S::notFullyCoded>}});
  Append(columns, RateColumns());
  Append(columns, MinuteColumns());
  Append(columns, EstimateColumns());
  Append(columns, SurveyFileColumns());
  return columns;
}

}  // namespace orvex
