#include "ui/print/PaperFlow.h"

#include <QApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <numeric>
#include <utility>

#include "agreement/figure_grid.h"
#include "ui/print/ReportPrinter.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kTextSize = 8;
constexpr double kHeadingSize = 10;
constexpr double kHeadingGap = 10;  // above a heading
constexpr double kTextGap = 6;      // beneath a text or a chart
constexpr double kColumnGap = 7;
constexpr double kRowGap = 3;
constexpr double kMostNumber = 44;  // the width of a column of numbers where there is little room
constexpr double kAnyHeight = 1e6;
constexpr double kUpwards = -90;
/// A longer text goes on in a further row, or in a further paragraph. So many characters fit a
/// page.
constexpr qsizetype kMostInCell = 900;
constexpr qsizetype kMostInText = 4000;

QFont BoldFont(double size) {
  QFont font = PaperFont(QApplication::font(), size);
  font.setBold(true);
  return font;
}

/// How a text wraps: between its words, and within one only where that is wider than its place.
int WrapOf(const QFont& font, const QString& text, double width) {
  const QFontMetricsF metrics(font);
  const QStringList words = text.split(QLatin1Char(' '));
  const bool fits = std::ranges::all_of(
      words, [&](const QString& word) { return metrics.horizontalAdvance(word) < width; });
  return fits ? Qt::TextWordWrap : Qt::TextWrapAnywhere;
}

double HeightOf(const QFont& font, const QString& text, double width) {
  return QFontMetricsF(font)
      .boundingRect(QRectF(0, 0, width, kAnyHeight), WrapOf(font, text, width), text)
      .height();
}

void Write(QPainter& painter, const QRectF& area, int alignment, const QString& text) {
  painter.drawText(area, alignment | WrapOf(painter.font(), text, area.width()), text);
}

/// True for a number, and for what stands in the place of one.
bool IsFigure(const QString& cell) {
  bool isNumber = false;
  cell.toDouble(&isNumber);
  return isNumber || cell.startsWith(QLatin1String("n/a"));
}

/// The parts of a text, cut at blanks where there are any, that are short enough for a row each.
QStringList PartsOf(QString text, qsizetype most) {
  QStringList parts;
  while (text.size() > most) {
    qsizetype at = text.lastIndexOf(QLatin1Char(' '), most);
    if (at < most / 2) at = most;
    if (text.at(at).isLowSurrogate()) --at;
    parts << text.left(at);
    text = text.mid(at).trimmed();
  }
  return parts << text;
}

}  // namespace

QPalette PaperFlow::Palette() {
  QPalette palette(Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, Qt::black);
  }
  for (const auto role : {QPalette::Window, QPalette::Base}) palette.setColor(role, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(0, 84, 166));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

QFont PaperFlow::Font() {
  return PaperFont(QApplication::font(), kTextSize);
}

/// A table on paper. Where its headings would not fit beside each other, those of numbers are
/// written upwards.
class PaperFlow::Table {
 public:
  Table(std::vector<Column> columns, std::vector<std::vector<QString>> rows)
      : columns_(std::move(columns)), rows_(std::move(rows)) {
    const QFontMetricsF metrics(Font());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      double width = 0;
      for (const auto& row : rows_) {
        width = std::max(width, metrics.horizontalAdvance(row[i].left(kMostInCell)));
      }
      natural_.push_back(std::ceil(width) + 1);
    }
  }

  double HeadingHeight(double width) {
    Fit(width);
    const QFontMetricsF metrics(BoldFont(kTextSize));
    double height = metrics.height();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const QString& heading = columns_[i].heading;
      height = std::max(height, IsUpright(i) ? metrics.horizontalAdvance(heading) + kRowGap
                                             : HeightOf(BoldFont(kTextSize), heading, widths_[i]));
    }
    return height + 2 * kRowGap;
  }
  double HeightOfRow(double width, std::size_t row) {
    Fit(width);
    double height = QFontMetricsF(Font()).height();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      height = std::max(height, HeightOf(Font(), rows_[row][i], widths_[i]));
    }
    return height + kRowGap;
  }
  void PaintHeading(QPainter& painter, const QRectF& area) {
    painter.setFont(BoldFont(kTextSize));
    PaintCells(painter, area, [&](std::size_t i, const QRectF& cell) {
      if (!IsUpright(i)) {
        return Write(painter, cell, SideOf(i) | static_cast<int>(Qt::AlignBottom),
                     columns_[i].heading);
      }
      painter.save();
      painter.translate(cell.bottomLeft());
      painter.rotate(kUpwards);
      painter.drawText(QRectF(0, 0, cell.height(), cell.width()),
                       static_cast<int>(Qt::AlignLeft | Qt::AlignBottom), columns_[i].heading);
      painter.restore();
    });
    painter.setPen(QPen(Qt::gray, 0.5));
    const double line = area.bottom() - kRowGap / 2;
    painter.drawLine(QPointF(area.left(), line), QPointF(area.right(), line));
  }
  void PaintRow(QPainter& painter, const QRectF& area, std::size_t row) {
    painter.setFont(Font());
    PaintCells(painter, area, [&](std::size_t i, const QRectF& cell) {
      Write(painter, cell, SideOf(i) | static_cast<int>(Qt::AlignTop), rows_[row][i]);
    });
  }

 private:
  int SideOf(std::size_t column) const {
    return static_cast<int>(columns_[column].isNumber ? Qt::AlignRight : Qt::AlignLeft);
  }
  bool IsUpright(std::size_t column) const { return areUpright_ && columns_[column].isNumber; }

  template <typename Paint>
  void PaintCells(QPainter& painter, const QRectF& area, const Paint& paint) {
    Fit(area.width());
    painter.setPen(Qt::black);
    double left = area.left();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      paint(i, QRectF(left, area.top(), widths_[i], area.height() - kRowGap));
      left += widths_[i] + kColumnGap;
    }
  }

  /// Gives every column the width of its cells and its heading. Where that is more than there is,
  /// the headings of numbers stand upright and long cells wrap.
  void Fit(double width) {
    if (width == fittedTo_) return;
    fittedTo_ = width;
    const QFontMetricsF bold(BoldFont(kTextSize));
    const double room = width - kColumnGap * (static_cast<double>(columns_.size()) - 1);
    const auto sum = [this] { return std::accumulate(widths_.begin(), widths_.end(), 0.0); };
    const auto widen = [&](std::size_t i) {
      widths_[i] = std::max(widths_[i], bold.horizontalAdvance(columns_[i].heading) + 2);
    };
    widths_ = natural_;
    areUpright_ = false;
    for (std::size_t i = 0; i < widths_.size(); ++i) widen(i);
    if (sum() <= room) return;
    widths_ = natural_;
    areUpright_ = true;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      if (!columns_[i].isNumber) {
        widen(i);
      } else {
        widths_[i] = std::clamp(widths_[i], bold.height(), kMostNumber);
      }
    }
    // The widest columns share what the narrower ones leave.
    std::vector<std::size_t> byWidth(widths_.size());
    std::iota(byWidth.begin(), byWidth.end(), std::size_t{0});
    std::ranges::sort(byWidth, {}, [this](std::size_t i) { return widths_[i]; });
    double left = room;
    std::size_t remaining = widths_.size();
    for (const std::size_t i : byWidth) {
      widths_[i] = std::min(widths_[i], left / static_cast<double>(remaining));
      left -= widths_[i];
      --remaining;
    }
  }

  const std::vector<Column> columns_;
  const std::vector<std::vector<QString>> rows_;
  std::vector<double> natural_;  ///< as wide as the cells need
  double fittedTo_ = -1;
  bool areUpright_ = false;
  std::vector<double> widths_;
};

std::size_t PaperFlow::Add(Block block) {
  placedFor_ = {};
  blocks_.push_back(std::move(block));
  return blocks_.size() - 1;
}

void PaperFlow::AddHeading(const QString& text) {
  const QFont font = BoldFont(kHeadingSize);
  Add({.height = [=](double width) { return kHeadingGap + HeightOf(font, text, width) + kRowGap; },
       .paint =
           [=](QPainter& painter, const QRectF& area) {
             painter.setFont(font);
             painter.setPen(Qt::black);
             Write(painter, area.adjusted(0, kHeadingGap, 0, 0), 0, text);
           },
       .staysWithNext = true});
}

void PaperFlow::AddText(const QString& text) {
  for (const QString& part : PartsOf(text, kMostInText)) {
    Add({.height = [=](double width) { return HeightOf(Font(), part, width) + kTextGap; },
         .paint =
             [=](QPainter& painter, const QRectF& area) {
               painter.setFont(Font());
               painter.setPen(Qt::black);
               Write(painter, area, 0, part);
             }});
  }
}

void PaperFlow::AddTable(std::vector<Column> columns, std::vector<std::vector<QString>> rows) {
  std::vector<std::vector<QString>> fitting;
  for (const auto& row : rows) {
    std::vector<QStringList> parts;
    qsizetype most = 1;
    for (const QString& cell : row) {
      parts.push_back(PartsOf(cell, kMostInCell));
      most = std::max(most, parts.back().size());
    }
    for (qsizetype part = 0; part < most; ++part) {
      std::vector<QString>& cells = fitting.emplace_back();
      for (const QStringList& cell : parts) cells.push_back(cell.value(part));
    }
  }
  const std::size_t count = fitting.size();
  const auto table = std::make_shared<Table>(std::move(columns), std::move(fitting));
  const std::size_t heading = Add(
      {.height = [=](double width) { return table->HeadingHeight(width); },
       .paint = [=](QPainter& painter, const QRectF& area) { table->PaintHeading(painter, area); },
       .staysWithNext = true});
  for (std::size_t row = 0; row < count; ++row) {
    Add({.height = [=](double width) { return table->HeightOfRow(width, row); },
         .paint = [=](QPainter& painter,
                      const QRectF& area) { table->PaintRow(painter, area, row); },
         .repeated = heading});
  }
}

void PaperFlow::AddTable(const FigureGrid& table) {
  std::vector<Column> columns;
  for (const FigureGrid::Column& column : table.columns) {
    columns.push_back({ToQt(column.heading), column.isNumber});
  }
  std::vector<std::vector<QString>> rows;
  for (const FigureGrid::Row& row : table.rows) {
    std::vector<QString>& cells = rows.emplace_back();
    for (const FigureGrid::Cell& cell : row.cells) cells.push_back(ToQt(cell.text));
  }
  AddTable(std::move(columns), std::move(rows));
}

void PaperFlow::AddTabbedText(const QString& text) {
  for (const QString& part : text.split(QStringLiteral("\n\n"), Qt::SkipEmptyParts)) {
    std::vector<std::vector<QString>> rows;
    std::size_t most = 0;
    for (const QString& line : part.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
      const QStringList cells = line.split(QLatin1Char('\t'));
      rows.emplace_back(cells.begin(), cells.end());
      most = std::max(most, rows.back().size());
    }
    if (rows.empty()) continue;
    for (auto& row : rows) row.resize(most);
    std::vector<Column> columns;
    for (std::size_t i = 0; i < most; ++i) {
      // The first column says what a line is of.
      const bool isNumber =
          i > 0 && std::all_of(rows.begin() + 1, rows.end(), [i](const auto& row) {
            return row[i].isEmpty() || IsFigure(row[i]);
          });
      columns.push_back({rows.front()[i], isNumber});
    }
    rows.erase(rows.begin());
    AddTable(std::move(columns), std::move(rows));
    AddText({});
  }
}

void PaperFlow::AddChart(std::function<double(double width)> height,
                         std::function<void(QPainter& painter, const QRectF& area)> paint) {
  Add({.height = [height = std::move(height)](double width) { return height(width) + kTextGap; },
       .paint =
           [paint = std::move(paint)](QPainter& painter, const QRectF& area) {
             painter.save();
             painter.setFont(Font());
             paint(painter, area.adjusted(0, 0, 0, -kTextGap));
             painter.restore();
           }});
}

const std::vector<PaperFlow::Place>& PaperFlow::PlacesFor(const QSizeF& area) const {
  if (area == placedFor_) return places_;
  placedFor_ = area;
  places_.clear();
  int page = 0;
  double top = 0;
  const auto place = [&](std::size_t block) {
    const double height = blocks_[block].height(area.width());
    places_.push_back({page, top, height, block});
    top += height;
  };
  for (std::size_t i = 0; i < blocks_.size(); ++i) {
    // What stays with the next needs room for that as well.
    double needed = blocks_[i].height(area.width());
    for (std::size_t next = i; blocks_[next].staysWithNext && next + 1 < blocks_.size(); ++next) {
      needed += blocks_[next + 1].height(area.width());
    }
    if (top > 0 && top + needed > area.height()) {
      ++page;
      top = 0;
      if (blocks_[i].repeated) place(*blocks_[i].repeated);
    }
    place(i);
  }
  return places_;
}

int PaperFlow::Pages(const QSizeF& area) const {
  const auto& places = PlacesFor(area);
  return places.empty() ? 1 : places.back().page + 1;
}

void PaperFlow::PaintPage(QPainter& painter, const QSizeF& area, int page) const {
  for (const Place& place : PlacesFor(area)) {
    if (place.page != page) continue;
    blocks_[place.block].paint(painter, QRectF(0, place.top, area.width(), place.height));
  }
}

}  // namespace orvex
