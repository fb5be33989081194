#pragma once

#include <QRectF>

#include "reports/question_statistics.h"

class QColor;
class QPainter;

namespace orvex {

/// Where to draw a bar, and how much room there is behind it for a caption.
struct BarPlace {
  QRectF bar;
  double captionRoom = 0;
};

/// Fills `area` the way the legend shows `meaning`. The colours also differ in brightness and
/// pattern, so that every eye can tell them apart, on every printer.
void PaintMeaning(QPainter& painter, const QRectF& area, BarMeaning meaning);

/// The area of a segment on a bar that covers `bar`.
QRectF AreaOf(const BarSegment& segment, const QRectF& bar);

/// Draws the bar of `row`; `ink` is the colour of texts and lines outside its segments.
void PaintBar(QPainter& painter, const BarPlace& place, const StatisticsRow& row,
              const QColor& ink);

}  // namespace orvex
