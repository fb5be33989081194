#pragma once

#include <QString>
#include <cstddef>
#include <vector>

class QPainter;
class QRectF;

namespace orvex {

/// A table on paper. Its columns are as wide as their cells, as far as the page allows. Where the
/// headings would not fit beside each other, those of numbers are written upwards, and long cells
/// wrap. A text that would not fit a page goes on in a further row. Lengths are in points.
class PaperTable {
 public:
  struct Column {
    QString heading;
    bool isNumber = false;  ///< set flush right
  };

  /// Every row has a cell for each column.
  PaperTable(std::vector<Column> columns, const std::vector<std::vector<QString>>& rows);

  std::size_t Rows() const { return rows_.size(); }
  double HeadingHeight(double width);
  double HeightOfRow(double width, std::size_t row);
  void PaintHeading(QPainter& painter, const QRectF& area);
  void PaintRow(QPainter& painter, const QRectF& area, std::size_t row);

 private:
  int SideOf(std::size_t column) const;
  bool IsUpright(std::size_t column) const { return areUpright_ && columns_[column].isNumber; }
  template <typename Paint>
  void PaintCells(QPainter& painter, const QRectF& area, const Paint& paint);
  void Fit(double width);
  void Narrow(double room);

  std::vector<Column> columns_;
  std::vector<std::vector<QString>> rows_;
  std::vector<double> natural_;  ///< as wide as the cells need
  double fittedTo_ = -1;
  bool areUpright_ = false;
  std::vector<double> widths_;
};

}  // namespace orvex
