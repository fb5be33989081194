#include "study/study_picture.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "model/texts.h"
#include "model/wording.h"
#include "reports/time_axis.h"
#include "store/numbers.h"
#include "study/folded_text.h"
#include "study/found_files.h"
#include "study/logged_class.h"
#include "study/observation_day.h"
#include "study/study_columns.h"

namespace orvex {
namespace {

std::optional<double> ShareOf(int part, int whole) {
  return whole > 0 ? std::optional(static_cast<double>(part) / whole) : std::nullopt;
}

/// The number by which a row is sorted in an order by numbers.
std::optional<double> NumberOf(const PictureRow& row, RowOrder order) {
  const CodeCounts& counts = row.summary.counts;
  switch (order) {
    case RowOrder::date: {
      const auto day = DayOf(row.date);
      return day ? std::optional<double>(day->time_since_epoch().count()) : std::nullopt;
    }
    case RowOrder::length:
      return row.picture.seconds;
    case RowOrder::questions:
      return counts.Total;
    case RowOrder::pace:
      return QuestionsPerMinute(counts.Total, row.picture.seconds);
    case RowOrder::studentQuestions:
      return ShareOf(counts.StudentQ, counts.Total);
    case RowOrder::authentic:
      return ShareOf(counts.AuthTeacher + counts.AuthStudent, counts.Total);
    case RowOrder::uptake:
      return ShareOf(counts.UptakeTest + counts.UptakeAuthentic, counts.Responded);
    case RowOrder::higherLevel:
      return ShareOf(counts.HigherLevel, counts.TeacherQ);
    case RowOrder::unanswered:
      return ShareOf(counts.NoResponse, counts.TeacherQ);
    case RowOrder::offtask:
      return row.summary.offtask;
    default:
      return std::nullopt;
  }
}

StudySortKey KeyOf(const PictureRow& row, RowOrder order) {
  if (order == RowOrder::name) return {false, 0, NameKey(row.name)};
  if (order == RowOrder::observer) {
    return {row.observer.empty(), 0, Folded(row.observer)};
  }
  const auto number = NumberOf(row, order);
  return {!number, number.value_or(0), ""};
}

/// The length of the longest class that is not far longer than usual.
double AxisSeconds(const std::vector<PictureRow>& rows) {
  constexpr double kMostUsual = 2.5;
  std::vector<double> lengths;
  for (const PictureRow& row : rows) {
    if (row.picture.seconds > 0) lengths.push_back(row.picture.seconds);
  }
  if (lengths.empty()) return 0;
  std::ranges::sort(lengths);
  const double usual = lengths[lengths.size() / 2];
  return *std::prev(std::ranges::upper_bound(lengths, kMostUsual * usual));
}

}  // namespace

PictureRow MakePictureRow(const LoggedClass& shown) {
  const EpsHeader& header = shown.observation.header;
  return {.name = header.identity.ClassId(),
          .date = header.ObservDate,
          .observer = header.identity.Initials,
          .picture = shown.Picture(),
          .summary = Summarize(shown.observation.Episodes)};
}

std::optional<RowOrder> RowOrderNamed(std::string_view id) {
  const auto found = std::ranges::find(kRowOrders, id, &RowOrderScheme::id);
  return found == kRowOrders.end() ? std::nullopt : std::optional(found->order);
}

std::string CellOf(const PictureRow& row, RowOrder column) {
  constexpr double kPercent = 100;
  if (column == RowOrder::name) return row.name;
  if (column == RowOrder::date) return row.date;
  if (column == RowOrder::observer) return row.observer;
  const auto number = NumberOf(row, column);
  if (!number) return "n/a";
  switch (column) {
    case RowOrder::length:
      return FormatMinSec(*number);
    case RowOrder::questions:
      return FormatPattern(*number, "0");
    case RowOrder::pace:
      return FormatPattern(*number, "0.00");
    case RowOrder::offtask:
      return Say(Text::percent, {FormatPattern(kPercent * *number, "0.0")});
    default:
      return Say(Text::percent, {FormatPattern(kPercent * *number, "0")});
  }
}

bool StudyPicture::AnyGoesBeyondAxis() const {
  return std::ranges::any_of(rows, [this](const PictureRow& row) { return GoesBeyondAxis(row); });
}

StudyPicture MakeStudyPicture(std::vector<PictureRow> rows, RowOrder order) {
  const bool isDescending = SchemeOf(order).isDescending;
  std::vector<std::pair<StudySortKey, std::string>> keys;
  keys.reserve(rows.size());
  for (const PictureRow& row : rows) keys.emplace_back(KeyOf(row, order), NameKey(row.name));
  std::vector<std::size_t> positions(rows.size());
  std::iota(positions.begin(), positions.end(), std::size_t{0});
  std::ranges::stable_sort(positions, [&](std::size_t a, std::size_t b) {
    if (ComesBefore(keys[a].first, keys[b].first, isDescending)) return true;
    if (ComesBefore(keys[b].first, keys[a].first, isDescending)) return false;
    return keys[a].second < keys[b].second;
  });
  StudyPicture picture = {.order = order, .rows = {}, .seconds = AxisSeconds(rows), .axis = {}};
  picture.rows.reserve(rows.size());
  for (const std::size_t position : positions) {
    picture.rows.push_back(std::move(rows[position]));
  }
  picture.axis = TimeAxis({0, picture.seconds}, std::nullopt);
  return picture;
}

}  // namespace orvex
