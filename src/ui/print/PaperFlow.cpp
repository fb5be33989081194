#include "ui/print/PaperFlow.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <memory>
#include <utility>

#include "agreement/figure_grid.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kHeadingSize = 10;
constexpr double kAboveHeading = 10;
constexpr double kBeneath = 6;  // a text or a chart
constexpr double kBeneathHeading = 3;
constexpr qsizetype kMostInText = 4000;  // characters; so many fit a page

/// True for a number, and for what stands in the place of one.
bool IsFigure(const QString& cell) {
  bool isNumber = false;
  cell.toDouble(&isNumber);
  return isNumber || cell.startsWith(QLatin1String("n/a"));
}

}  // namespace

std::size_t PaperFlow::Add(Block block) {
  placedFor_ = {};
  blocks_.push_back(std::move(block));
  return blocks_.size() - 1;
}

void PaperFlow::AddHeading(const QString& text) {
  const QFont font = PaperBoldFont(kHeadingSize);
  Add({.height =
           [=](double width) {
             return kAboveHeading + HeightOf(font, text, width) + kBeneathHeading;
           },
       .paint =
           [=](QPainter& painter, const QRectF& area) {
             painter.setFont(font);
             painter.setPen(Qt::black);
             Write(painter, area.adjusted(0, kAboveHeading, 0, 0), 0, text);
           },
       .staysWithNext = true});
}

void PaperFlow::AddText(const QString& text) {
  for (const QString& part : PartsOf(text, kMostInText)) {
    Add({.height = [=](double width) { return HeightOf(PaperTextFont(), part, width) + kBeneath; },
         .paint =
             [=](QPainter& painter, const QRectF& area) {
               painter.setFont(PaperTextFont());
               painter.setPen(Qt::black);
               Write(painter, area, 0, part);
             }});
  }
}

void PaperFlow::AddTable(std::vector<PaperTable::Column> columns,
                         const std::vector<std::vector<QString>>& rows) {
  const auto table = std::make_shared<PaperTable>(std::move(columns), rows);
  const std::size_t heading = Add(
      {.height = [=](double width) { return table->HeadingHeight(width); },
       .paint = [=](QPainter& painter, const QRectF& area) { table->PaintHeading(painter, area); },
       .staysWithNext = true});
  constexpr std::size_t kMostRowsOfSmall = 10;
  const bool isSmall = table->Rows() <= kMostRowsOfSmall;  // and never parted
  for (std::size_t row = 0; row < table->Rows(); ++row) {
    Add({.height = [=](double width) { return table->HeightOfRow(width, row); },
         .paint = [=](QPainter& painter,
                      const QRectF& area) { table->PaintRow(painter, area, row); },
         .repeated = heading,
         .staysWithNext = isSmall && row + 1 < table->Rows()});
  }
}

void PaperFlow::AddTable(const FigureGrid& table) {
  std::vector<PaperTable::Column> columns;
  for (const FigureGrid::Column& column : table.columns) {
    columns.push_back({ToQt(column.heading), column.isNumber});
  }
  std::vector<std::vector<QString>> rows;
  for (const FigureGrid::Row& row : table.rows) {
    std::vector<QString>& cells = rows.emplace_back();
    for (const FigureGrid::Cell& cell : row.cells) cells.push_back(ToQt(cell.text));
  }
  AddTable(std::move(columns), rows);
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
    std::vector<PaperTable::Column> columns;
    for (std::size_t i = 0; i < most; ++i) {
      // The first column says what a line is of.
      const bool isNumber =
          i > 0 && std::all_of(rows.begin() + 1, rows.end(), [i](const auto& row) {
            return row[i].isEmpty() || IsFigure(row[i]);
          });
      columns.push_back({rows.front()[i], isNumber});
    }
    rows.erase(rows.begin());
    AddTable(std::move(columns), rows);
    AddText({});
  }
}

void PaperFlow::AddPainted(std::function<double(double width)> height,
                           std::function<void(QPainter& painter, const QRectF& area)> paint) {
  Add({.height = [height = std::move(height)](double width) { return height(width) + kBeneath; },
       .paint =
           [paint = std::move(paint)](QPainter& painter, const QRectF& area) {
             painter.save();
             painter.setFont(PaperTextFont());
             paint(painter, area.adjusted(0, 0, 0, -kBeneath));
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
    // What would not fit any page goes on wherever it is.
    if (needed > area.height()) needed = blocks_[i].height(area.width());
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
