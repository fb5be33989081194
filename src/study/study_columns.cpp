#include "study/study_columns.h"

#include <limits>
#include <optional>
#include <string_view>

#include "model/texts.h"
#include "model/wording.h"
#include "store/numbers.h"
#include "study/folded_text.h"
#include "study/observation_day.h"

namespace orvex {
namespace {

/// The number of a column that counts something in the episode file.
std::optional<int> CountOf(const StudyRow& row, StudyColumn column) {
  if (!row.summary) return std::nullopt;
  switch (column) {
    case StudyColumn::episodes:
      return row.summary->episodes;
    case StudyColumn::segments:
      return row.summary->segments;
    case StudyColumn::questions:
      return row.summary->counts.Total;
    case StudyColumn::notFullyCoded:
      return row.summary->notFullyCoded;
    case StudyColumn::spells:
      return row.summary->spells;
    default:
      return std::nullopt;
  }
}

std::string OfftaskText(const StudyRow& row) {
  constexpr double kPercent = 100;
  if (!row.summary || !row.summary->offtask) return "";
  return FormatPattern(kPercent * *row.summary->offtask, "0.0") + "%";
}

std::string SurveyText(const StudyRow& row) {
  if (!row.Has(FileKind::survey)) return Say(Text::surveyNone);
  if (!row.openStatements) return Say(Text::surveyBroken);
  return *row.openStatements == 0 ? Say(Text::surveyComplete)
                                  : Say(Text::surveyOpen, {*row.openStatements});
}

std::string ProblemsText(const StudyRow& row) {
  std::string text;
  for (const std::string& problem : row.problems) {
    if (!text.empty()) text += ' ';
    text += problem;
  }
  return text;
}

/// The value that a column of texts is sorted by, where that is a number.
std::optional<double> ValueOf(const StudyRow& row, StudyColumn column) {
  switch (column) {
    case StudyColumn::school:
      return ParseNumber(row.identity.SchoolNum);
    case StudyColumn::classNum:
      return ParseNumber(row.identity.ClassNum);
    case StudyColumn::observation:
      return ParseNumber(row.identity.ObservNum);
    case StudyColumn::students:
      return ParseNumber(row.identity.NumStudents);
    case StudyColumn::date: {
      const auto day = DayOf(row.date);
      return day ? std::optional<double>(day->time_since_epoch().count()) : std::nullopt;
    }
    case StudyColumn::length:
      return row.summary ? std::optional(row.summary->seconds) : std::nullopt;
    case StudyColumn::offtask:
      return row.summary ? row.summary->offtask : std::nullopt;
    case StudyColumn::survey:
      return row.openStatements ? std::optional<double>(*row.openStatements) : std::nullopt;
    default:
      const auto count = CountOf(row, column);
      return count ? std::optional<double>(*count) : std::nullopt;
  }
}

}  // namespace

std::string CellOf(const StudyRow& row, StudyColumn column) {
  switch (column) {
    case StudyColumn::school:
      return row.identity.SchoolNum;
    case StudyColumn::classNum:
      return row.identity.ClassNum;
    case StudyColumn::observation:
      return row.identity.ObservNum;
    case StudyColumn::initials:
      return row.identity.Initials;
    case StudyColumn::date:
      return row.date;
    case StudyColumn::start:
      return row.start;
    case StudyColumn::length:
      return row.summary ? FormatMinSec(row.summary->seconds) : "";
    case StudyColumn::students:
      return row.identity.NumStudents;
    case StudyColumn::offtask:
      return OfftaskText(row);
    case StudyColumn::survey:
      return SurveyText(row);
    case StudyColumn::notes:
      return row.hasNotes ? Say(Text::yes) : "";
    case StudyColumn::problems:
      return ProblemsText(row);
    default:
      const auto count = CountOf(row, column);
      return count ? std::to_string(*count) : "";
  }
}

StudySortKey SortKeyOf(const StudyRow& row, StudyColumn column) {
  if (const auto value = ValueOf(row, column)) return {false, *value, ""};
  std::string text = Folded(CellOf(row, column));
  // A text among numbers comes after them.
  return {text.empty(), std::numeric_limits<double>::max(), std::move(text)};
}

bool ComesBefore(const StudySortKey& a, const StudySortKey& b, bool descending) {
  if (a.missing != b.missing) return b.missing;
  const StudySortKey& first = descending ? b : a;
  const StudySortKey& second = descending ? a : b;
  if (first.number != second.number) return first.number < second.number;
  return first.text < second.text;
}

}  // namespace orvex
