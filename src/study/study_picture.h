#pragma once

#include <array>
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

struct RowOrderScheme {
  RowOrder order;
  std::string_view id;     ///< on the command line
  std::string_view label;  ///< what it is, as a part of a sentence
  bool isDescending;       ///< the largest comes first
};
inline constexpr auto kRowOrders = std::to_array<RowOrderScheme>({
    {RowOrder::name, "name", "school, class and observation number", false},
    {RowOrder::date, "date", "date", false},
    {RowOrder::observer, "observer", "observer", false},
    {RowOrder::length, "length", "length, the longest first", true},
    {RowOrder::questions, "questions", "number of questions, the most first", true},
    {RowOrder::pace, "pace", "questions per minute, the most first", true},
    {RowOrder::studentQuestions, "students", "share of students' questions, the largest first",
     true},
    {RowOrder::authentic, "authentic", "share of authentic questions, the largest first", true},
    {RowOrder::uptake, "uptake", "share of answered questions with uptake, the largest first",
     true},
    {RowOrder::higherLevel, "higher-level",
     "share of higher-level questions among the teacher's, the largest first", true},
    {RowOrder::unanswered, "unanswered",
     "share of the teacher's questions without response, the largest first", true},
    {RowOrder::offtask, "off-task", "share of students off task, the largest first", true},
});
/// The order of this name; nothing if there is none.
std::optional<RowOrder> RowOrderNamed(std::string_view id);

/// Many classes beneath each other on one axis, which counts from the begin of each of them.
struct StudyPicture {
  std::vector<PictureRow> rows;
  double seconds = 0;  ///< the length of the longest class
  std::vector<ClassPicture::AxisMark> axis;
};
StudyPicture MakeStudyPicture(std::vector<PictureRow> rows, RowOrder order);

}  // namespace orvex
