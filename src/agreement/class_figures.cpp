#include "agreement/class_figures.h"

#include <string_view>

#include "agreement/activity_agreement.h"
#include "model/activities.h"
#include "store/numbers.h"
#include "study/observation_summary.h"

namespace orvex {
namespace {

struct FigureNames {
  std::string_view name;
  std::string_view label;
};
/// The names, in the order of ClassFigure.
constexpr std::array<FigureNames, kClassFigures> kNames = {{
    {"questions_per_minute", "Questions per minute"},
    {"authentic_teacher", "Authentic among teacher questions"},
    {"uptake", "With uptake among questions with a response"},
    {"higher_level", "Higher-level among teacher questions"},
    {"time_management", "Time: classroom management"},
    {"time_instruction", "Time: direct instruction"},
    {"time_test", "Time: tests and quizzes"},
    {"time_seatwork", "Time: seatwork and pairwork"},
    {"offtask", "Off-task in question/answer"},
}};

constexpr std::size_t PositionOf(ClassFigure figure) {
  return static_cast<std::size_t>(figure);
}

/// The figure that is the share of time of an activity group.
constexpr ClassFigure TimeOf(ActivityGroup group) {
  switch (group) {
    case ActivityGroup::management:
      return ClassFigure::timeManagement;
    case ActivityGroup::directInstruction:
      return ClassFigure::timeInstruction;
    case ActivityGroup::tests:
      return ClassFigure::timeTest;
    case ActivityGroup::seatwork:
      break;
  }
  return ClassFigure::timeSeatwork;
}

std::optional<double> Share(double part, double whole) {
  if (whole <= 0) return std::nullopt;
  return part / whole;
}

/// The shares of time, and the questions for each minute; none for a class whose time cannot be
/// believed.
void TakeTime(const EpsObservation& observation, int questions, ClassFigures& figures) {
  double all = 0;
  std::array<double, kClassFigures> seconds{};
  for (const ActivityStretch& stretch : StretchesOf(observation.Episodes, 0)) {
    const double length = stretch.end - stretch.begin;
    all += length;
    if (stretch.activity == kNoActivity) continue;
    seconds[PositionOf(TimeOf(ActivityOf(stretch.activity).group))] += length;
  }
  for (std::size_t group = 0; group < kActivityGroupCount; ++group) {
    const std::size_t position = PositionOf(TimeOf(static_cast<ActivityGroup>(group)));
    figures[position] = Share(seconds[position], all);
  }
  constexpr double kSecondsPerMinute = 60;
  figures[PositionOf(ClassFigure::questionsPerMinute)] = Share(questions, all / kSecondsPerMinute);
}

}  // namespace

std::string_view NameOf(ClassFigure figure) {
  return kNames[PositionOf(figure)].name;
}

std::string_view LabelOf(ClassFigure figure) {
  return kNames[PositionOf(figure)].label;
}

ClassFigures FiguresOf(const EpsObservation& observation) {
  ClassFigures figures;
  const CodeCounts counts = Summarize(observation.Episodes).counts;
  figures[PositionOf(ClassFigure::authenticTeacher)] = Share(counts.AuthTeacher, counts.TeacherQ);
  figures[PositionOf(ClassFigure::uptake)] =
      Share(counts.UptakeTest + counts.UptakeAuthentic, counts.Responded);
  figures[PositionOf(ClassFigure::higherLevel)] = Share(counts.HigherLevel, counts.TeacherQ);
  TakeTime(observation, counts.Total, figures);
  if (const auto position = OfftaskPosition(kQuestionAnswer)) {
    // As the file has it: a single has other digits behind those that count.
    const auto mean = ParseNumber(PrintDigits(observation.header.ActivityOfftask[*position]));
    if (mean != 0.0) figures[PositionOf(ClassFigure::offtask)] = mean;
  }
  return figures;
}

}  // namespace orvex
