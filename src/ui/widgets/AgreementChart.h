#pragma once

#include <QCoreApplication>
#include <QRectF>
#include <QString>
#include <optional>
#include <vector>

#include "agreement/code_table.h"

class QFontMetricsF;
class QPainter;
class QPalette;

namespace orvex {

struct CodeAgreement;

/// A line of the chart: a table of two observers' codes, and what it is about.
struct AgreementLine {
  QString label;
  CodeTable table{0};
  std::optional<int> leftOut = {};  ///< nothing where no code can be left out
};
/// A line for each dimension.
std::vector<AgreementLine> LinesOf(const std::vector<CodeAgreement>& codes);

/// How far two observers agree, a line for each thing that was coded: a bar of the percentage, the
/// figures, and kappa with its interval on a scale. It can be painted on the screen and on paper.
class AgreementChart {
  Q_DECLARE_TR_FUNCTIONS(AgreementChart)

 public:
  AgreementChart() = default;
  explicit AgreementChart(std::vector<AgreementLine> lines) : lines_(std::move(lines)) {}

  static double HeightOfLine(const QFontMetricsF& metrics);
  /// The height of the heading and all lines, and the width below which the columns overlap.
  double Height(const QFontMetricsF& metrics) const;
  double LeastWidth(const QFontMetricsF& metrics) const;
  void Paint(QPainter& painter, const QRectF& area, const QPalette& palette) const;
  /// The figures as text, a line each.
  QString Text() const;

 private:
  struct Columns;

  Columns Place(const QFontMetricsF& metrics, const QRectF& area) const;
  void PaintHeading(QPainter& painter, const Columns& columns, double top) const;
  static void PaintLine(QPainter& painter, const Columns& columns, double top,
                        const AgreementLine& line, const QPalette& palette);

  std::vector<AgreementLine> lines_;
};

}  // namespace orvex
