#include "ui/widgets/PaintBar.h"

#include <QColor>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <optional>

#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kHatch = 6;  // the distance between lines
constexpr double kCaptionMargin = 4;
constexpr double kSegmentGap = 1;

constexpr QRgb kYellow = qRgb(255, 255, 0);
constexpr QRgb kBlue = qRgb(0, 84, 166);
constexpr QRgb kVermilion = qRgb(232, 112, 32);
constexpr QRgb kOutline = qRgb(48, 48, 48);

enum class Pattern { plain, hatched, dotted };

struct Look {
  QRgb ground;
  Pattern pattern;
  QRgb caption;
};

std::optional<Look> LookOf(BarMeaning meaning) {
  constexpr QRgb kBlack = qRgb(0, 0, 0);
  constexpr QRgb kWhite = qRgb(255, 255, 255);
  switch (meaning) {
    case BarMeaning::positive:
      return Look{kBlue, Pattern::plain, kWhite};
    case BarMeaning::no:
      return Look{kYellow, Pattern::plain, kBlack};
    case BarMeaning::negative:
      return Look{kVermilion, Pattern::hatched, kBlack};
    case BarMeaning::uncoded:
      return Look{kWhite, Pattern::dotted, kBlack};
    case BarMeaning::none:
      break;
  }
  return std::nullopt;
}

void Hatch(QPainter& painter, const QRectF& area) {
  painter.setPen(QPen(QColor(kOutline), 1.2));
  for (double x = area.left() - area.height(); x < area.right(); x += kHatch) {
    painter.drawLine(QPointF(x, area.bottom()), QPointF(x + area.height(), area.top()));
  }
}

void Dot(QPainter& painter, const QRectF& area) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(kOutline));
  constexpr double kStep = kHatch / 2;
  bool shifted = false;
  for (double y = area.top() + kStep; y < area.bottom(); y += kStep) {
    for (double x = area.left() + (shifted ? kHatch : kStep); x < area.right(); x += kHatch) {
      painter.drawEllipse(QPointF(x, y), 0.6, 0.6);
    }
    shifted = !shifted;
  }
}

/// Paints the caption in the visible part of the segment. Without enough room, the last segment's
/// caption goes behind the bar; other segments go without, as the heading gives their number.
void PaintCaption(QPainter& painter, const BarSegment& segment, const QRectF& seen, bool last,
                  double captionRoom, const QColor& ink) {
  if (segment.caption.empty()) return;
  const QString caption = ToQt(segment.caption);
  const double width = QFontMetricsF(painter.font()).horizontalAdvance(caption) + kCaptionMargin;
  if (width <= seen.width()) {
    const auto look = LookOf(segment.meaning);
    if (look && look->pattern != Pattern::plain) {
      QRectF plate(0, 0, width, seen.height() - 4);
      plate.moveCenter(seen.center());
      painter.fillRect(plate, QColor(look->ground));
    }
    painter.setPen(look ? QColor(look->caption) : ink);
    painter.drawText(seen, Qt::AlignCenter, caption);
  } else if (last) {
    painter.setPen(ink);
    const QRectF behind(seen.right() + kCaptionMargin, seen.top(), width + captionRoom,
                        seen.height());
    painter.drawText(behind, Qt::AlignLeft | Qt::AlignVCenter, caption);
  }
}

}  // namespace

void PaintMeaning(QPainter& painter, const QRectF& area, BarMeaning meaning) {
  const auto look = LookOf(meaning);
  if (!look || area.width() <= 0) return;
  painter.save();
  painter.fillRect(area, QColor(look->ground));
  if (look->pattern != Pattern::plain) {
    painter.setClipRect(area, Qt::IntersectClip);
    look->pattern == Pattern::hatched ? Hatch(painter, area) : Dot(painter, area);
  }
  painter.restore();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(kOutline), 1));
  const double inset = std::min(0.5, area.width() / 2);
  painter.drawRect(area.adjusted(inset, 0.5, -inset, -0.5));
}

QRectF AreaOf(const BarSegment& segment, const QRectF& bar) {
  const double scale = bar.width() / kBarLength;
  return {bar.left() + segment.left * scale, bar.top(), segment.width * scale, bar.height()};
}

void PaintBar(QPainter& painter, const BarPlace& place, const StatisticsRow& row,
              const QColor& ink) {
  QColor faint = ink;
  faint.setAlphaF(0.4F);
  painter.setPen(QPen(faint, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(place.bar.adjusted(0.5, 0.5, -0.5, -0.5));
  const double filled = row.FilledLength();
  if (row.restIsUncoded && !row.bar.empty() && row.bar.front().reference > 0) {
    constexpr double kAlmostAll = kBarLength - 0.5;  // a rounding error is not a rest
    if (filled < kAlmostAll) {
      BarSegment rest;
      rest.left = filled;
      rest.width = kBarLength - filled;
      PaintMeaning(painter, AreaOf(rest, place.bar), BarMeaning::uncoded);
    }
  }
  for (auto segment = row.bar.rbegin(); segment != row.bar.rend(); ++segment) {
    QRectF area = AreaOf(*segment, place.bar);
    // A gap shows where one segment ends and a neighbour of the same colour begins.
    const bool neighboured = area.right() < place.bar.right() - kSegmentGap;
    if (neighboured && area.width() > 4 * kSegmentGap) area.setRight(area.right() - kSegmentGap);
    PaintMeaning(painter, area, segment->meaning);
  }
  double covered = 0;
  for (const BarSegment& segment : row.bar) {
    BarSegment seen = segment;
    seen.left = std::max(segment.left, covered);
    seen.width = std::max(0.0, segment.Right() - seen.left);
    covered = std::max(covered, segment.Right());
    const bool last = segment.Right() >= filled && !row.restIsUncoded;
    const bool atEnd = segment.Right() >= kBarLength - 0.5;
    PaintCaption(painter, segment, AreaOf(seen, place.bar), last || atEnd, place.captionRoom, ink);
  }
}

}  // namespace orvex
