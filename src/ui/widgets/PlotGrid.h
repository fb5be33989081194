#pragma once

#include <QFont>
#include <QStringView>

class QPainter;
class QPointF;

namespace orvex {

/// How the characters of the question plot are set: each in a cell of its own, so that a column
/// stands under its ruler digit even where a mark comes from another font.
class PlotGrid {
 public:
  explicit PlotGrid(const QFont& font);

  /// The fixed-pitch font of the system, with the marks of the plot if one is at hand.
  static QFont FixedFont();

  double CellWidth() const { return cellWidth_; }
  double CellHeight() const { return cellHeight_; }
  /// Writes `row` from `at` on, its upper left corner, with a line after every tenth column.
  void Paint(QPainter& painter, const QPointF& at, QStringView row) const;
  /// The line after every tenth of so many columns.
  void PaintGuides(QPainter& painter, const QPointF& at, int columns) const;

 private:
  QFont font_;
  double cellWidth_ = 0;
  double cellHeight_ = 0;
  double ascent_ = 0;
};

}  // namespace orvex
