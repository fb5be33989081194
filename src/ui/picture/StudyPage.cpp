#include "ui/picture/StudyPage.h"

#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/picture/ClassStrip.h"
#include "ui/picture/PageStyle.h"
#include "ui/picture/StudyPlaces.h"
#include "ui/print/ReportPrinter.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kText = 0.89;      // of the page's font
constexpr double kBesideTitle = 2;  // in heights of a line of text
constexpr double kLeastGap = 0.8;   // between two times, in heights of a small line

/// There is much on a page: it is set in a smaller font.
PageStyle StyleOf(const QFont& font, const QPalette& palette) {
  return {PaperFont(font, std::round(kText * QFontInfo(font).pixelSize())), palette};
}

Qt::Alignment AlignmentOf(const StudyPlaces::Column& column) {
  return Qt::AlignVCenter | (column.isFigure ? Qt::AlignRight : Qt::AlignLeft);
}

void PaintText(QPainter& painter, const QRectF& place, Qt::Alignment alignment,
               const QString& text) {
  painter.drawText(place, static_cast<int>(alignment) | Qt::TextDontClip,
                   Fitting(text, QFontMetricsF(painter.font()), place.width()));
}

}  // namespace

StudyPage::StudyPage(StudyPicture picture, QString title)
    : picture_(std::move(picture)), title_(std::move(title)) {}

int StudyPage::Pages(const QRectF& area, const QFont& font) const {
  return StudyPlaces(picture_, area, StyleOf(font, QPalette())).pages;
}

void StudyPage::Paint(QPainter& painter, const QRectF& area, const QFont& font,
                      const QPalette& palette, int page) const {
  const PageStyle style = StyleOf(font, palette);
  const StudyPlaces places(picture_, area, style);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(area, style.paper);
  painter.translate(area.topLeft());
  painter.scale(places.scale, places.scale);
  PaintHeading(painter, places, style, page);
  if (!picture_.rows.empty()) {
    PaintBands(painter, places, style, page);
    PaintAxis(painter, places, style);
    PaintColumns(painter, places, style, page);
    for (std::size_t i = places.FirstOf(page); i < places.FirstOf(page + 1); ++i) {
      PaintStrip(painter, places.Row(page, i), places.time, picture_.rows[i].picture, style);
    }
    StripLegend(picture_, style).Paint(painter, places.legend);
  }
  painter.restore();
}

void StudyPage::PaintHeading(QPainter& painter, const StudyPlaces& places, const PageStyle& style,
                             int page) const {
  const auto count = picture_.rows.size();
  const QString classes =
      count == 0 ? tr("No classes")
      : count == 1
          ? tr("1 class")
          : tr("%1 classes, sorted by %2").arg(count).arg(ToQt(SchemeOf(picture_.order).label));
  const QRectF& area = places.heading;
  const QFontMetricsF ofTitle(style.title);
  const QFontMetricsF ofText(style.text);
  const double base = area.bottom() - ofTitle.descent();
  double right = area.right();
  painter.setFont(style.text);
  painter.setPen(style.quiet);
  if (places.pages > 1) {
    const QString number = tr("Page %1 of %2").arg(page + 1).arg(places.pages);
    right -= ofText.horizontalAdvance(number);
    painter.drawText(QPointF(right, base), number);
    right -= kBesideTitle * style.line;
  }
  double left = area.left();
  if (!title_.isEmpty()) {
    const QString title = Fitting(title_, ofTitle, area.width() / 3);
    painter.setFont(style.title);
    painter.setPen(style.ink);
    painter.drawText(QPointF(left, base), title);
    left += ofTitle.horizontalAdvance(title) + kBesideTitle * style.line;
  }
  painter.setFont(style.text);
  painter.setPen(style.ink);
  painter.drawText(QPointF(left, base), Fitting(classes, ofText, right - left));
}

void StudyPage::PaintBands(QPainter& painter, const StudyPlaces& places, const PageStyle& style,
                           int page) const {
  for (std::size_t i = places.FirstOf(page); i < places.FirstOf(page + 1); i += 2) {
    painter.fillRect(places.Row(page, i), style.tint);
  }
}

void StudyPage::PaintAxis(QPainter& painter, const StudyPlaces& places,
                          const PageStyle& style) const {
  if (picture_.axis.empty()) return;
  const double width =
      QFontMetricsF(style.small).horizontalAdvance(ToQt(picture_.axis.back().text));
  const double apart =
      picture_.axis.size() > 1 ? places.time.X(picture_.axis[1].second) - places.time.left : width;
  // Every mark has its line; of the times, as many as there is room for.
  const auto every = static_cast<std::size_t>(
      std::ceil((width + kLeastGap * style.smallLine) / std::max(1.0, apart)));
  painter.setFont(style.small);
  for (std::size_t i = 0; i < picture_.axis.size(); ++i) {
    const double x = places.time.X(picture_.axis[i].second);
    painter.setPen(style.Pen(style.thin));
    painter.drawLine(QPointF(x, places.rows.top()), QPointF(x, places.rows.bottom()));
    if (i % every != 0) continue;
    painter.setPen(style.quiet);
    for (const QRectF& line : {places.headings, places.axis}) {
      PaintText(painter, QRectF(x - width / 2, line.top(), width, line.height()), Qt::AlignCenter,
                ToQt(picture_.axis[i].text));
    }
  }
}

void StudyPage::PaintColumns(QPainter& painter, const StudyPlaces& places, const PageStyle& style,
                             int page) const {
  for (const StudyPlaces::Column& column : places.columns) {
    const bool isSortedBy = column.shows == picture_.order;
    painter.setPen(isSortedBy ? style.ink : style.quiet);
    painter.setFont(isSortedBy ? style.smallBold : style.small);
    const auto at = [&](const QRectF& row) {
      return QRectF(column.left, row.top(), column.width, row.height());
    };
    PaintText(painter, at(places.headings), AlignmentOf(column),
              ToQt(SchemeOf(column.shows).heading));
    painter.setFont(style.small);
    painter.setPen(isSortedBy || column.shows == RowOrder::name ? style.ink : style.quiet);
    for (std::size_t i = places.FirstOf(page); i < places.FirstOf(page + 1); ++i) {
      PaintText(painter, at(places.Row(page, i)), AlignmentOf(column),
                ToQt(CellOf(picture_.rows[i], column.shows)).simplified());
    }
  }
}

}  // namespace orvex
