#pragma once

#include <QFont>
#include <QStringView>

class QPainter;
class QPointF;

namespace orvex {

/// Lays out the characters of the question plot. Each has its own cell, so that columns line up
/// even where a mark comes from another font.
class PlotGrid {
 public:
  explicit PlotGrid(const QFont& font);

  /// The system's fixed-pitch font, or another one if only that has the marks of the plot.
  static QFont FixedFont();

  double CellWidth() const { return cellWidth_; }
  double CellHeight() const { return cellHeight_; }
  /// Paints `row` with its upper left corner at `at`.
  void Paint(QPainter& painter, const QPointF& at, QStringView row) const;
  /// Paints a line after every tenth of `columns` columns.
  void PaintGuides(QPainter& painter, const QPointF& at, int columns) const;

 private:
  QFont font_;
  double cellWidth_ = 0;
  double cellHeight_ = 0;
  double ascent_ = 0;
};

}  // namespace orvex
