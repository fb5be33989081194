#include "ui/picture/TimeChart.h"

#include <QCoreApplication>
#include <QPainter>
#include <algorithm>

#include "ui/picture/PagePlaces.h"
#include "ui/picture/PageStyle.h"
#include "ui/text.h"
#include "ui/widgets/ActivityColours.h"

namespace orvex {
namespace {

constexpr double kInset = 0.3;       // beside a name, in heights of a line of text
constexpr double kLeastGap = 0.8;    // between two times
constexpr double kBetween = 1;       // two blocks
constexpr double kLeastWidth = 0.6;  // of a block

/// The name of a segment's activity, its short one, or what fits of that.
QString NameFor(const ClassPicture::SegmentBlock& segment, const QFontMetricsF& metrics,
                double width) {
  if (segment.shortName.empty()) return {};
  const QString name = ToQt(ActivityOf(segment.activity).name);
  return metrics.horizontalAdvance(name) <= width
             ? name
             : Fitting(ToQt(segment.shortName), metrics, width);
}

}  // namespace

QRectF Across(const QRectF& area, const TimeScale& time, const Stretch& stretch) {
  const Stretch visible = time.Visible(stretch);
  if (visible.Length() <= 0) return {};
  const double left = time.X(visible.begin);
  const double width = std::max(kLeastWidth, time.X(visible.end) - left - kBetween);
  return {left, area.top(), width, area.height()};
}

void PaintAxis(QPainter& painter, const PagePlaces& places, const ClassPicture& picture,
               const PageStyle& style) {
  const QFontMetricsF metrics(style.small);
  const double top = std::min(places.episodes.top(), places.segments.top());
  double free = 0;
  painter.setFont(style.small);
  for (const ClassPicture::AxisMark& mark : picture.Axis(places.time.shown)) {
    const double x = places.time.X(mark.second);
    painter.setPen(style.Pen(style.thin));
    painter.drawLine(QPointF(x, top), QPointF(x, places.axis.top() + style.line / 4));
    const QString text = ToQt(mark.text);
    const double width = metrics.horizontalAdvance(text);
    if (x - width / 2 < free) continue;
    free = x + width / 2 + kLeastGap * style.line;
    painter.setPen(style.ink);
    painter.drawText(QPointF(x - width / 2, places.axis.top() + style.line / 4 + metrics.ascent()),
                     text);
  }
}

void PaintEpisodes(QPainter& painter, const QRectF& area, const TimeScale& time,
                   const ClassPicture& picture, const PageStyle& style) {
  PaintName(painter, area, QCoreApplication::translate("TimeChart", "Episodes"), style);
  const QFontMetricsF metrics(style.small);
  const double inset = kInset * style.line;
  painter.setFont(style.small);
  for (const ClassPicture::EpisodeBand& episode : picture.episodes) {
    const QRectF band = Across(area, time, episode.time);
    if (band.isEmpty()) continue;
    painter.fillRect(band, style.tint);
    painter.setPen(style.Pen(style.quiet));
    painter.drawLine(band.topLeft(), band.bottomLeft());
    const QString number = QString::number(episode.number);
    QString name = number + QLatin1String("  ") + ToQt(episode.description).simplified();
    name = Fitting(name, metrics, band.width() - 2 * inset);
    if (name.isEmpty()) name = Fitting(number, metrics, band.width() - inset);
    painter.setPen(style.ink);
    painter.drawText(band.adjusted(inset, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, name);
  }
}

void PaintSegments(QPainter& painter, const QRectF& area, const TimeScale& time,
                   const ClassPicture& picture, const PageStyle& style) {
  const QFontMetricsF metrics(style.small);
  painter.setFont(style.small);
  for (const ClassPicture::SegmentBlock& segment : picture.segments) {
    const QRectF block = Across(area, time, segment.time);
    if (block.isEmpty()) continue;
    const QColor ground = GroundOf(segment, style);
    PaintBlock(painter, block, ground, style);
    const QString name = NameFor(segment, metrics, block.width() - kInset * style.line);
    if (name.isEmpty()) continue;
    painter.setPen(segment.group ? InkOn(ground) : style.ink);
    painter.drawText(block, Qt::AlignCenter | Qt::TextDontClip, name);
  }
}

QColor GroundOf(const ClassPicture::SegmentBlock& segment, const PageStyle& style) {
  return segment.group ? ColourOf(*segment.group) : style.paper;
}

void PaintBlock(QPainter& painter, const QRectF& block, const QColor& ground,
                const PageStyle& style) {
  const QPen outline = style.Pen(style.quiet, 0.5);
  const double inside = outline.widthF() / 2;
  painter.setPen(outline);
  painter.setBrush(ground);
  painter.drawRect(block.adjusted(inside, inside, -inside, -inside));
}

void PaintSpells(QPainter& painter, const QRectF& area, const TimeScale& time,
                 const ClassPicture& picture, const PageStyle& style) {
  for (const ClassPicture::SpellBracket& spell : picture.spells) {
    const Stretch visible = time.Visible(spell.time);
    if (!time.Shows(visible.begin) || spell.time.end < time.shown.begin ||
        spell.time.begin > time.shown.end) {
      continue;
    }
    // A little wider than its questions, which it holds.
    const double left = time.X(visible.begin) - kInset * style.line;
    const double right = time.X(visible.end) + kInset * style.line;
    PaintBracket(painter, QRectF(left, area.top(), right - left, area.height()), style);
  }
}

void PaintBracket(QPainter& painter, const QRectF& place, const PageStyle& style) {
  const double top = place.top() + 0.35 * place.height();
  painter.setPen(style.Pen(style.ink, 1.4));
  painter.setBrush(Qt::NoBrush);
  const std::array corners = {QPointF(place.left(), place.bottom() - 0.1 * place.height()),
                              QPointF(place.left(), top), QPointF(place.right(), top),
                              QPointF(place.right(), place.bottom() - 0.1 * place.height())};
  painter.drawPolyline(corners.data(), static_cast<int>(corners.size()));
}

void PaintName(QPainter& painter, const QRectF& part, const QString& name, const PageStyle& style) {
  painter.setPen(style.ink);
  painter.setFont(style.bold);
  painter.drawText(QRectF(style.line, part.top(), part.left(), part.height()),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, name);
}

}  // namespace orvex
