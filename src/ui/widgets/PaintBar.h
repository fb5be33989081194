#pragma once

#include <QRectF>

#include "reports/question_statistics.h"

class QColor;
class QPainter;

namespace orvex {

/// Where a bar is drawn: the whole of it, and what is left behind it for a caption.
struct BarPlace {
  QRectF bar;
  double captionRoom = 0;
};

/// Fills `area` as the legend shows `meaning`: colours that differ in brightness as well, and
/// patterns, so that they can be told apart by every eye and on every printer.
void PaintMeaning(QPainter& painter, const QRectF& area, BarMeaning meaning);

/// Where a segment of `row` lies on a bar that is drawn on `bar`.
QRectF AreaOf(const BarSegment& segment, const QRectF& bar);

/// Draws the bar of `row`; `ink` is the colour of texts and lines beside its segments.
void PaintBar(QPainter& painter, const BarPlace& place, const StatisticsRow& row,
              const QColor& ink);

}  // namespace orvex
