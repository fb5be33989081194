#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "model/program.h"

namespace orvex {

inline constexpr std::size_t kPlotRows = 18;
/// The row that numbers the questions.
inline constexpr std::size_t kRulerRow = 17;

/// A row of the plot: what its mark stands for.
struct PlotRowMeaning {
  std::string_view letter;  ///< the code's letter; "" where the row is no code's
  std::string_view name;
};
extern const std::array<PlotRowMeaning, kPlotRows> kPlotRowMeanings;

/// Neighbouring rows that share a heading.
struct PlotGroup {
  std::string_view heading;
  std::size_t first;
  std::size_t rows;
  bool endsSection;  ///< a line separates it from the next
};
extern const std::array<PlotGroup, 10> kPlotGroups;

/// An episode's questions as a chart of characters: character n of a row belongs to question n.
struct QuestionPlot {
  std::string title;      ///< "7-12-3 Episode 2"
  std::string totalText;  ///< "Total Number of Questions: 12"
  std::array<std::string, kPlotRows> PlotRows;
  int questions = 0;
  /// How many columns the rows have: a bar behind a spell that ends with the last question stands
  /// in a column of its own.
  int columns = 0;
};

/// A row beneath the ruler that has the whole number at every tenth question, whose column is that
/// of the number's last digit.
std::string TensRow(int questions);

/// The plot of `episode`, the one with the number `number`.
QuestionPlot MakeQuestionPlot(const Identity& identity, int number, const Episode& episode);

/// The same as lines of tab-separated fields. The first field is as wide in every line, so that the
/// rows stand under each other in a mail, too.
std::string TextOf(const QuestionPlot& plot);

}  // namespace orvex
