#include "ui/picture/StudyPlaces.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "ui/picture/ClassStrip.h"
#include "ui/picture/PageStyle.h"
#include "ui/text.h"

namespace orvex {
namespace {

// Lengths in heights of a small line.
constexpr double kLeastWidth = 75;
constexpr double kMargin = 0.9;
constexpr double kHeading = 2.1;
constexpr double kAxis = 1.2;
constexpr double kGap = 0.8;
constexpr double kLeastRow = 1.2;
constexpr double kMostRow = 3;
constexpr double kWidestText = 9;  // of a column left of the strips
constexpr double kBetween = 0.9;   // two columns
constexpr double kBesideStrips = 2.2;

/// As many classes have room on a page of any shape.
constexpr std::size_t kLeastRoom = 44;

double Times(double length, std::size_t count) {
  return length * static_cast<double>(count);
}

/// The lengths are shown, too, where the strips do not tell them.
bool IsShown(const RowOrderScheme& column, const StudyPicture& picture) {
  return column.column != RowColumn::rightWhenSorted || column.order == picture.order ||
         (column.order == RowOrder::length && picture.AnyGoesBeyondAxis());
}

/// The width of a column that holds its heading and what it shows of every class.
double WidthOf(const RowOrderScheme& column, const StudyPicture& picture, const PageStyle& style) {
  const QFontMetricsF metrics(style.small);
  double width = 0;
  for (const PictureRow& row : picture.rows) {
    width = std::max(width, metrics.horizontalAdvance(ToQt(CellOf(row, column.order))));
  }
  return std::max(std::min(width, kWidestText * style.smallLine),
                  QFontMetricsF(style.smallBold).horizontalAdvance(ToQt(column.heading)));
}

}  // namespace

double StudyPlaces::Arrange(const StudyPicture& picture, const PageStyle& style, double width,
                            double rowsHeight) {
  const double line = style.smallLine;
  const double margin = kMargin * line;
  double top = margin;
  const auto put = [&](QRectF& part, double height, double gap) {
    part = QRectF(margin, top, width - 2 * margin, height);
    top += height + gap * line;
  };
  put(heading, kHeading * line, kGap);
  put(headings, kAxis * line, 0);
  put(rows, rowsHeight, 0);
  put(axis, kAxis * line, kGap);
  put(legend, StripLegend(picture, style).Height(legend.width()), 0);
  return top + margin;
}

void StudyPlaces::PlaceColumns(const StudyPicture& picture, const PageStyle& style) {
  const double line = style.smallLine;
  double left = headings.left();
  double figures = 0;
  for (const RowOrderScheme& scheme : kRowOrders) {
    if (!IsShown(scheme, picture)) continue;
    const double width = WidthOf(scheme, picture, style);
    const bool isFigure = scheme.column != RowColumn::left;
    columns.push_back({scheme.order, isFigure ? figures : left, width, isFigure});
    (isFigure ? figures : left) += width + kBetween * line;
  }
  const double firstFigure = headings.right() - figures + kBetween * line;
  for (Column& column : columns) {
    if (column.isFigure) column.left += firstFigure;
  }
  const double beside = kBesideStrips * line;
  time = {{0, picture.seconds}, left - kBetween * line + beside, firstFigure - beside};
}

StudyPlaces::StudyPlaces(const StudyPicture& picture, const QRectF& area, const PageStyle& style)
    : classes_(picture.rows.size()) {
  const double leastRow = kLeastRow * style.smallLine;
  scale = std::min(1.0, area.width() / (kLeastWidth * style.smallLine));
  const double least = Arrange(picture, style, area.width() / scale,
                               Times(leastRow, std::min(classes_, kLeastRoom)));
  scale = std::min(scale, area.height() / least);
  page = QRectF(0, 0, area.width() / scale, area.height() / scale);
  const double room = page.height() - Arrange(picture, style, page.width(), 0);
  const double fitting = std::max(1.0, std::floor(room / leastRow + 1e-6));
  const auto classes = static_cast<double>(classes_);
  pages = std::max(1, static_cast<int>(std::ceil(classes / fitting)));
  const double fullest = std::ceil(classes / pages);
  rowHeight_ = std::min(kMostRow * style.smallLine, room / std::max(1.0, fullest));
  Arrange(picture, style, page.width(), rowHeight_ * fullest);
  PlaceColumns(picture, style);
}

std::size_t StudyPlaces::FirstOf(int ofPage) const {
  return classes_ * static_cast<std::size_t>(ofPage) / static_cast<std::size_t>(pages);
}

QRectF StudyPlaces::Row(int ofPage, std::size_t position) const {
  return {rows.left(), rows.top() + Times(rowHeight_, position - FirstOf(ofPage)), rows.width(),
          rowHeight_};
}

}  // namespace orvex
