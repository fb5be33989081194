#include "ui/picture/PageFigures.h"

#include <QPainter>
#include <QRectF>
#include <algorithm>

#include "ui/picture/PageStyle.h"
#include "ui/text.h"

namespace orvex {
namespace {

// Lengths in heights of a line of text.
constexpr double kBesideTitle = 2;
constexpr double kBetween = 1.7;
constexpr double kWidestHeading = 14;
constexpr double kFigureLine = 1.12;
constexpr double kFigureHeading = 1.4;
constexpr double kWidestFigures = 24;

}  // namespace

void PaintHeading(QPainter& painter, const QRectF& area, const ClassPicture& picture,
                  const PageStyle& style) {
  const QFontMetricsF ofTitle(style.title);
  const QFontMetricsF ofCaption(style.small);
  const QFontMetricsF ofText(style.text);
  const QString title = Fitting(ToQt(picture.title), ofTitle, area.width() / 3);
  // The title and the texts stand on one line.
  const double base = area.bottom() - ofText.descent();
  painter.setPen(style.ink);
  painter.setFont(style.title);
  painter.drawText(QPointF(area.left(), base), title);
  double left = area.left() + ofTitle.horizontalAdvance(title) + kBesideTitle * style.line;
  for (const ClassPicture::Heading& heading : picture.heading) {
    const QString caption = ToQt(heading.caption);
    const QString text =
        Fitting(ToQt(heading.text), ofText,
                std::min(kWidestHeading * style.line, std::max(0.0, area.right() - left)));
    const double width =
        std::max(ofCaption.horizontalAdvance(caption), ofText.horizontalAdvance(text));
    if (left + width > area.right()) break;
    painter.setPen(style.quiet);
    painter.setFont(style.small);
    painter.drawText(QPointF(left, base - ofText.height()), caption);
    painter.setPen(style.ink);
    painter.setFont(style.text);
    painter.drawText(QPointF(left, base), text);
    left += width + kBetween * style.line;
  }
}

double FiguresHeight(const ClassPicture& picture, const PageStyle& style) {
  std::size_t most = 0;
  for (const auto& block : picture.figures) most = std::max(most, block.figures.size());
  return (kFigureHeading + kFigureLine * static_cast<double>(most)) * style.line;
}

void PaintFigures(QPainter& painter, const QRectF& area, const ClassPicture& picture,
                  const PageStyle& style) {
  if (picture.figures.empty()) return;
  const QFontMetricsF metrics(style.text);
  const double each = area.width() / static_cast<double>(picture.figures.size());
  const double width = std::min(each - kBetween * style.line, kWidestFigures * style.line);
  double left = area.left();
  for (const ClassPicture::FigureBlock& block : picture.figures) {
    QRectF place(left, area.top(), width, style.line);
    painter.setPen(style.ink);
    painter.setFont(style.bold);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip,
                     ToQt(block.heading));
    const double rule = place.bottom() + (kFigureHeading - 1) * style.line / 2;
    painter.setPen(style.Pen(style.thin));
    painter.drawLine(QPointF(left, rule), QPointF(left + width, rule));
    place.moveTop(area.top() + kFigureHeading * style.line);
    painter.setFont(style.text);
    for (const ClassPicture::Figure& figure : block.figures) {
      const QString value = ToQt(figure.value);
      const double rest = width - metrics.horizontalAdvance(value) - style.line;
      painter.setPen(style.quiet);
      painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip,
                       Fitting(ToQt(figure.caption), metrics, rest));
      painter.setPen(style.ink);
      painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip, value);
      place.translate(0, kFigureLine * style.line);
    }
    left += each;
  }
}

}  // namespace orvex
