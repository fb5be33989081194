#pragma once

#include "reports/class_picture.h"

class QPainter;
class QRectF;

namespace orvex {

struct PageStyle;

/// Paints the title of a class's page and what it says of the class.
void PaintHeading(QPainter& painter, const QRectF& area, const ClassPicture& picture,
                  const PageStyle& style);

/// The height of the figures beneath the chart, which stand in columns.
double FiguresHeight(const ClassPicture& picture, const PageStyle& style);
void PaintFigures(QPainter& painter, const QRectF& area, const ClassPicture& picture,
                  const PageStyle& style);

}  // namespace orvex
