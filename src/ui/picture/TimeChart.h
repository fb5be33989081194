#pragma once

#include "ui/picture/TimeScale.h"

class QColor;
class QPainter;
class QRectF;
class QString;

namespace orvex {

struct PagePlaces;
struct PageStyle;

/// Paints the lines of the round times through all of the chart, and the times beneath it.
void PaintAxis(QPainter& painter, const PagePlaces& places, const ClassPicture& picture,
               const PageStyle& style);

/// Paints the bands of the episodes with their names.
void PaintEpisodes(QPainter& painter, const QRectF& area, const TimeScale& time,
                   const ClassPicture& picture, const PageStyle& style);

/// Paints the blocks of the segments in the colours of their groups, with their names where there
/// is room.
void PaintSegments(QPainter& painter, const QRectF& area, const TimeScale& time,
                   const ClassPicture& picture, const PageStyle& style);

/// What is shown of a stretch, over the height of `area`. Without a width where nothing is.
QRectF Across(const QRectF& area, const TimeScale& time, const Stretch& stretch);

/// The colour of a segment's block: of the paper where its activity is not known.
QColor GroundOf(const ClassPicture::SegmentBlock& segment, const PageStyle& style);

/// Paints a block of an activity; its outline tells it from a ground that is as dark or as light.
void PaintBlock(QPainter& painter, const QRectF& block, const QColor& ground,
                const PageStyle& style);

/// Paints the brackets of the dialogic spells.
void PaintSpells(QPainter& painter, const QRectF& area, const TimeScale& time,
                 const ClassPicture& picture, const PageStyle& style);
void PaintBracket(QPainter& painter, const QRectF& place, const PageStyle& style);

/// Paints what a part of the chart is called, left of it.
void PaintName(QPainter& painter, const QRectF& part, const QString& name, const PageStyle& style);

}  // namespace orvex
