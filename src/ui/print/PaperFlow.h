#pragma once

#include <QFontMetricsF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "ui/print/PaperTable.h"
#include "ui/print/PaperText.h"

class QPainter;

namespace orvex {

struct FigureGrid;

/// What a report holds, one beneath the other over as many pages as it takes: headings, texts,
/// tables whose headings are repeated on every page, and charts. Lengths are in points.
class PaperFlow {
 public:
  void AddHeading(const QString& text);
  void AddText(const QString& text);
  void AddTable(std::vector<PaperTable::Column> columns,
                const std::vector<std::vector<QString>>& rows);
  void AddTable(const FigureGrid& table);
  /// The tables of a report's text: lines of tab-separated cells, the first of them headings. Empty
  /// lines stand between two tables.
  void AddTabbedText(const QString& text);
  /// A chart, which is painted as a whole.
  template <typename Chart>
  void AddChart(const Chart& chart) {
    AddPainted([chart](double) { return chart.Height(QFontMetricsF(PaperTextFont())); },
               [chart](QPainter& painter, const QRectF& area) {
                 chart.Paint(painter, area, PaperPalette());
               });
  }
  /// Anything else that is painted as a whole. `height` may depend on the width of the page.
  void AddPainted(std::function<double(double width)> height,
                  std::function<void(QPainter& painter, const QRectF& area)> paint);

  int Pages(const QSizeF& area) const;
  void PaintPage(QPainter& painter, const QSizeF& area, int page) const;

 private:
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
