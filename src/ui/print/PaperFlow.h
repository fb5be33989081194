#pragma once

#include <QPalette>
#include <QSizeF>
#include <QString>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QPainter;
class QRectF;

namespace orvex {

struct FigureGrid;

/// What a report holds, one beneath the other over as many pages as it takes: headings, texts,
/// tables whose headings are repeated on every page, and charts. Lengths are in points.
class PaperFlow {
 public:
  struct Column {
    QString heading;
    bool isNumber = false;  ///< set flush right
  };

  void AddHeading(const QString& text);
  void AddText(const QString& text);
  /// A table. Its columns are as wide as their cells, as far as the page allows; long texts wrap,
  /// and go on in a further row where they would not fit a page.
  void AddTable(std::vector<Column> columns, std::vector<std::vector<QString>> rows);
  void AddTable(const FigureGrid& table);
  /// The tables of a report's text: lines of tab-separated cells, the first of them headings. Empty
  /// lines stand between two tables.
  void AddTabbedText(const QString& text);
  /// Something that is painted as a whole. `height` may depend on the width of the page.
  void AddChart(std::function<double(double width)> height,
                std::function<void(QPainter& painter, const QRectF& area)> paint);

  int Pages(const QSizeF& area) const;
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const;

  /// The colours and the size of texts on paper.
  static QPalette Palette();
  static QFont Font();

 private:
  class Table;

  /// A part that is never divided.
  struct Block {
    std::function<double(double width)> height;
    std::function<void(QPainter& painter, const QRectF& area)> paint;
    /// The block that stands above this one where it is the first of its page.
    std::optional<std::size_t> repeated = {};
    bool staysWithNext = false;
  };
  struct Place {
    int page = 0;
    double top = 0;
    double height = 0;
    std::size_t block = 0;
  };

  std::size_t Add(Block block);
  const std::vector<Place>& PlacesFor(const QSizeF& area) const;

  std::vector<Block> blocks_;
  mutable QSizeF placedFor_;
  mutable std::vector<Place> places_;
};

}  // namespace orvex
