#include "ui/print/PaperTable.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "ui/print/PaperText.h"

namespace orvex {
namespace {

constexpr double kColumnGap = 7;
constexpr double kRowGap = 3;
constexpr double kMostNumber = 44;  // the width of a column of numbers where there is little room
constexpr double kUpwards = -90;
constexpr qsizetype kMostInCell = 900;  // characters; so many fit a page

/// The rows with long cells going on in further ones.
std::vector<std::vector<QString>> Divided(const std::vector<std::vector<QString>>& rows) {
  std::vector<std::vector<QString>> divided;
  for (const auto& row : rows) {
    std::vector<QStringList> parts;
    qsizetype most = 1;
    for (const QString& cell : row) {
      parts.push_back(PartsOf(cell, kMostInCell));
      most = std::max(most, parts.back().size());
    }
    for (qsizetype part = 0; part < most; ++part) {
      std::vector<QString>& cells = divided.emplace_back();
      for (const QStringList& cell : parts) cells.push_back(cell.value(part));
    }
  }
  return divided;
}

}  // namespace

PaperTable::PaperTable(std::vector<Column> columns, const std::vector<std::vector<QString>>& rows)
    : columns_(std::move(columns)), rows_(Divided(rows)) {
  const QFontMetricsF metrics(PaperTextFont());
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    double width = 0;
    for (const auto& row : rows_) width = std::max(width, metrics.horizontalAdvance(row[i]));
    natural_.push_back(std::ceil(width) + 1);
  }
}

double PaperTable::HeadingHeight(double width) {
  Fit(width);
  const QFont font = PaperBoldFont();
  const QFontMetricsF metrics(font);
  double height = metrics.height();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const QString& heading = columns_[i].heading;
    height = std::max(height, IsUpright(i) ? metrics.horizontalAdvance(heading) + kRowGap
                                           : HeightOf(font, heading, widths_[i]));
  }
  return height + 2 * kRowGap;
}

double PaperTable::HeightOfRow(double width, std::size_t row) {
  Fit(width);
  const QFont font = PaperTextFont();
  double height = QFontMetricsF(font).height();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    height = std::max(height, HeightOf(font, rows_[row][i], widths_[i]));
  }
  return height + kRowGap;
}

void PaperTable::PaintHeading(QPainter& painter, const QRectF& area) {
  painter.setFont(PaperBoldFont());
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

void PaperTable::PaintRow(QPainter& painter, const QRectF& area, std::size_t row) {
  painter.setFont(PaperTextFont());
  PaintCells(painter, area, [&](std::size_t i, const QRectF& cell) {
    Write(painter, cell, SideOf(i) | static_cast<int>(Qt::AlignTop), rows_[row][i]);
  });
}

int PaperTable::SideOf(std::size_t column) const {
  return static_cast<int>(columns_[column].isNumber ? Qt::AlignRight : Qt::AlignLeft);
}

template <typename Paint>
void PaperTable::PaintCells(QPainter& painter, const QRectF& area, const Paint& paint) {
  Fit(area.width());
  painter.setPen(Qt::black);
  double left = area.left();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    paint(i, QRectF(left, area.top(), widths_[i], area.height() - kRowGap));
    left += widths_[i] + kColumnGap;
  }
}

/// Gives every column the width of its cells and its heading, if there is so much.
void PaperTable::Fit(double width) {
  if (width == fittedTo_) return;
  fittedTo_ = width;
  areUpright_ = false;
  const QFontMetricsF bold(PaperBoldFont());
  const double room = width - kColumnGap * (static_cast<double>(columns_.size()) - 1);
  widths_ = natural_;
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    widths_[i] = std::max(widths_[i], bold.horizontalAdvance(columns_[i].heading) + 2);
  }
  if (std::accumulate(widths_.begin(), widths_.end(), 0.0) > room) Narrow(room);
}

/// Sets the headings of numbers upright; the widest columns then share what the narrower ones
/// leave.
void PaperTable::Narrow(double room) {
  areUpright_ = true;
  const QFontMetricsF bold(PaperBoldFont());
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    if (columns_[i].isNumber) widths_[i] = std::clamp(natural_[i], bold.height(), kMostNumber);
  }
  std::vector<std::size_t> byWidth(widths_.size());
  std::iota(byWidth.begin(), byWidth.end(), std::size_t{0});
  std::ranges::sort(byWidth, {}, [this](std::size_t i) { return widths_[i]; });
  std::size_t remaining = widths_.size();
  for (const std::size_t i : byWidth) {
    widths_[i] = std::min(widths_[i], room / static_cast<double>(remaining));
    room -= widths_[i];
    --remaining;
  }
}

}  // namespace orvex
