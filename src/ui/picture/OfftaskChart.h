#pragma once

#include "ui/picture/TimeScale.h"

class QPainter;
class QPointF;
class QRectF;

namespace orvex {

struct PageStyle;

/// Paints the estimates of the students off task on an axis of their own, at least to a half of
/// them. Where there are none, says why.
void PaintEstimates(QPainter& painter, const QRectF& area, const TimeScale& time,
                    const ClassPicture& picture, const PageStyle& style);

void PaintEstimate(QPainter& painter, const QPointF& at, const PageStyle& style);
/// Paints the cross of an estimate that nobody entered.
void PaintMissed(QPainter& painter, const QPointF& at, const PageStyle& style);

/// The radius of every mark of a page.
double RadiusOf(const PageStyle& style);

}  // namespace orvex
