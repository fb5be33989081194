#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "study/study_row.h"

namespace orvex {

/// The columns of the table of observations, in their first order.
enum class StudyColumn {
  school,
  classNum,
  observation,
  initials,
  date,
  start,
  length,
  students,
  episodes,
  segments,
  questions,
  notFullyCoded,
  spells,
  offtask,
  survey,
  notes,
  problems,
};

/// All that is known of a column.
struct StudyColumnScheme {
  StudyColumn column;
  std::string_view id;  ///< its name where the layout is remembered
  std::string_view heading;
  std::string_view explanation;
  bool number;  ///< set flush right
};

inline constexpr auto kStudyColumns = std::to_array<StudyColumnScheme>({
    {StudyColumn::school, "school", "School", "School number", true},
    {StudyColumn::classNum, "class", "Class", "Class number", true},
    {StudyColumn::observation, "observation", "Obs.", "Observation number", true},
    {StudyColumn::initials, "initials", "Observer", "Initials of the observer", false},
    {StudyColumn::date, "date", "Date", "Date of the observation, month-day-year", false},
    {StudyColumn::start, "start", "Start", "Time at which the class began, by its log", false},
    {StudyColumn::length, "length", "Length", "Length of all segments, in minutes:seconds", true},
    {StudyColumn::students, "students", "Students", "Number of students present", true},
    {StudyColumn::episodes, "episodes", "Episodes", "Number of episodes", true},
    {StudyColumn::segments, "segments", "Segments", "Number of segments", true},
    {StudyColumn::questions, "questions", "Questions", "Number of questions", true},
    {StudyColumn::notFullyCoded, "not_fully_coded", "To code",
     "Number of questions that are not fully coded", true},
    {StudyColumn::spells, "spells", "Spells", "Number of dialogic spells", true},
    {StudyColumn::offtask, "offtask", "Off-task",
     "Mean share of students off task in the episodes with questions, weighted by their length",
     true},
    {StudyColumn::survey, "survey", "Survey",
     "Whether there is a survey, and how many of its statements are not rated", false},
    {StudyColumn::notes, "notes", "Notes", "Whether there are field notes", false},
    {StudyColumn::problems, "problems", "Problems", "What is wrong or missing, and where", false},
});
inline constexpr std::size_t kStudyColumnCount = kStudyColumns.size();

constexpr const StudyColumnScheme& SchemeOf(StudyColumn column) {
  return kStudyColumns[static_cast<std::size_t>(column)];
}
static_assert([] {
  for (std::size_t i = 0; i < kStudyColumnCount; ++i) {
    if (kStudyColumns[i].column != static_cast<StudyColumn>(i)) return false;
  }
  return true;
}());

/// What the column shows of the observation; "" where nothing is known.
std::string CellOf(const StudyRow& row, StudyColumn column);

/// Where an observation comes when the rows are sorted by a column: by number, then by text.
/// What is missing comes last in either direction.
struct StudySortKey {
  bool missing = true;
  double number = 0;
  std::string text;

  bool operator==(const StudySortKey&) const = default;
};
StudySortKey SortKeyOf(const StudyRow& row, StudyColumn column);
/// True when `a` comes before `b`.
bool ComesBefore(const StudySortKey& a, const StudySortKey& b, bool descending);

}  // namespace orvex
