#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "store/eps_file.h"

namespace orvex {

/// Figures of a class that are analysed class by class. Each is nothing where it is not defined.
enum class ClassFigure {
  questionsPerMinute,
  authenticTeacher,  ///< share of authentic ones among the teacher's questions
  uptake,            ///< share with uptake T or A among those with a response
  higherLevel,       ///< share among the teacher's questions
  timeManagement,    ///< shares of time, by activity group
  timeInstruction,
  timeTest,
  timeSeatwork,
  offtask,  ///< mean of question/answer; not defined where it is 0
};
inline constexpr std::size_t kClassFigures = 9;
/// "questions_per_minute".
std::string_view NameOf(ClassFigure figure);
/// "Questions per minute".
std::string_view LabelOf(ClassFigure figure);
using ClassFigures = std::array<std::optional<double>, kClassFigures>;
ClassFigures FiguresOf(const EpsObservation& observation);

}  // namespace orvex
