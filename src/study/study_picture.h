#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/class_picture.h"
#include "study/observation_summary.h"

namespace orvex {

struct LoggedClass;

/// A class in the picture of a study.
struct PictureRow {
  std::string name;      ///< "5-12-3"
  std::string date;      ///< "mm-dd-yyyy"
  std::string observer;  ///< initials
  ClassPicture picture;
  ObservationSummary summary;  ///< what it is sorted by, and the figures beside it
};
PictureRow MakePictureRow(const LoggedClass& shown);

/// By what the rows are sorted. Where they do not differ in it, the name decides.
enum class RowOrder {
  name,
  date,
  observer,
  length,
  questions,
  pace,
  studentQuestions,
  authentic,
  uptake,
  higherLevel,
  unanswered,
  offtask,
};

/// Where a picture of a study shows what its rows may be sorted by.
enum class RowColumn { left, right, rightWhenSorted };

struct RowOrderScheme {
  RowOrder order;
  std::string_view id;       ///< on the command line
  std::string_view label;    ///< what it is, as a part of a sentence
  bool isDescending;         ///< the largest comes first
  RowColumn column;          ///< of the strips of the classes
  std::string_view heading;  ///< of the column
};
inline constexpr auto kRowOrders = std::to_array<RowOrderScheme>({
    {RowOrder::name, "name", "school, class and observation number", false, RowColumn::left,
     "Class"},
    {RowOrder::date, "date", "date", false, RowColumn::left, "Date"},
    {RowOrder::observer, "observer", "observer", false, RowColumn::left, "Observer"},
    {RowOrder::length, "length", "length, the longest first", true, RowColumn::rightWhenSorted,
     "Length"},
    {RowOrder::questions, "questions", "number of questions, the most first", true,
     RowColumn::right, "Questions"},
    {RowOrder::pace, "pace", "questions per minute, the most first", true, RowColumn::right,
     "Per minute"},
    {RowOrder::studentQuestions, "students", "share of students' questions, the largest first",
     true, RowColumn::right, "Students'"},
    {RowOrder::authentic, "authentic", "share of authentic questions, the largest first", true,
     RowColumn::right, "Authentic"},
    {RowOrder::uptake, "uptake", "share of answered questions with uptake, the largest first", true,
     RowColumn::right, "Uptake"},
    {RowOrder::higherLevel, "higher-level",
     "share of higher-level questions among the teacher's, the largest first", true,
     RowColumn::rightWhenSorted, "Higher level"},
    {RowOrder::unanswered, "unanswered",
     "share of the teacher's questions without response, the largest first", true,
     RowColumn::rightWhenSorted, "No response"},
    {RowOrder::offtask, "off-task", "share of students off task, the largest first", true,
     RowColumn::right, "Off task"},
});
constexpr const RowOrderScheme& SchemeOf(RowOrder order) {
  return kRowOrders[static_cast<std::size_t>(order)];
}
static_assert([] {
  for (std::size_t i = 0; i < kRowOrders.size(); ++i) {
    if (kRowOrders[i].order != static_cast<RowOrder>(i)) return false;
  }
  return true;
}());
/// The order of this name; nothing if there is none.
std::optional<RowOrder> RowOrderNamed(std::string_view id);

/// What a column shows of a class: "34", "0.57", "21 %"; "n/a" where there is nothing to divide by.
std::string CellOf(const PictureRow& row, RowOrder column);

/// Many classes beneath each other on one axis, which counts from the begin of each of them.
struct StudyPicture {
  RowOrder order = RowOrder::name;
  std::vector<PictureRow> rows;  ///< sorted by it
  /// Where the axis ends: with the longest class, but without those that are far longer than usual,
  /// so that the others keep their room.
  double seconds = 0;
  std::vector<ClassPicture::AxisMark> axis;

  bool GoesBeyondAxis(const PictureRow& row) const { return row.picture.seconds > seconds; }
  bool AnyGoesBeyondAxis() const;
};
StudyPicture MakeStudyPicture(std::vector<PictureRow> rows, RowOrder order);

}  // namespace orvex
