#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "model/program.h"

namespace orvex {

inline constexpr std::size_t kPlotRows = 18;
/// The row with the numbers of the questions.
inline constexpr std::size_t kRulerRow = 17;

/// What the marks in a row of the plot stand for.
struct PlotRowMeaning {
  std::string_view letter;  ///< the code's letter; empty for rows that show no code
  std::string_view name;
};
extern const std::array<PlotRowMeaning, kPlotRows> kPlotRowMeanings;

/// Adjacent rows under one heading.
struct PlotGroup {
  std::string_view heading;
  std::size_t first;
  std::size_t rows;
  bool endsSection;  ///< a line separates it from the next group
};
extern const std::array<PlotGroup, 10> kPlotGroups;

/// An episode's questions as a chart of characters: character n of a row belongs to question n.
struct QuestionPlot {
  std::string title;      ///< "7-12-3 Episode 2"
  std::string totalText;  ///< "Total Number of Questions: 12"
  std::array<std::string, kPlotRows> PlotRows;
  int questions = 0;
  /// The number of columns. It exceeds the number of questions when a spell ends with the last
  /// one: the closing bar then needs a column of its own.
  int columns = 0;
};

/// A row to go beneath the ruler, with the full number of every tenth question. The number's
/// last digit is in the column of its question.
std::string TensRow(int questions);

/// Plots `episode`, which is number `number` of its observation.
QuestionPlot MakeQuestionPlot(const Identity& identity, int number, const Episode& episode);

/// The plot as lines of tab-separated fields. The first field is padded to the same width in
/// every line, so that the columns also line up in an e-mail.
std::string TextOf(const QuestionPlot& plot);

}  // namespace orvex
