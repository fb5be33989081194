#pragma once

#include "study/study_picture.h"
#include "ui/picture/PageLegend.h"
#include "ui/picture/TimeScale.h"

class QPainter;
class QRectF;

namespace orvex {

struct PageStyle;

/// Paints a class as a row of a study: a strip of its segments, with ticks of the teacher's
/// questions above it and of the students' below. The tick of an authentic question is longer and
/// ends in a dot. A class that goes on beyond the axis ends in an arrow.
void PaintStrip(QPainter& painter, const QRectF& row, const TimeScale& time,
                const ClassPicture& picture, const PageStyle& style);

/// Explains the marks of the strips.
PageLegend StripLegend(const StudyPicture& picture, const PageStyle& style);

}  // namespace orvex
