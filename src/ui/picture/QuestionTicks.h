#pragma once

#include <QRectF>
#include <cstddef>
#include <optional>
#include <vector>

#include "ui/picture/TimeScale.h"

class QPainter;
class QPointF;

namespace orvex {

struct PageStyle;

/// What is marked of a question beside who asked it, from the line outwards. Each has a shape and a
/// lane of its own, so that colours need not tell it.
enum class QuestionMark { authentic, uptake, higherLevel };
inline constexpr int kQuestionMarks = 3;
bool Has(const ClassPicture::QuestionTick& question, QuestionMark mark);

/// Where ticks stand: the teacher's above a line, the students' below. Beyond the end of the plain
/// ticks each mark has its lane.
struct TickPlaces {
  TickPlaces(const QRectF& area, double radius);
  /// The height that the ticks of a page need for the names of their lanes.
  static double LeastHeight(const PageStyle& style);

  double middle = 0;  ///< the line
  double stem = 0;    ///< the height of a plain tick
  double lane = 0;    ///< the height of a lane
  double radius = 0;  ///< of a mark

  /// The middle of a lane.
  double Lane(ClassPicture::Asker asker, QuestionMark mark) const;
  /// Where a plain tick ends.
  double Head(ClassPicture::Asker asker) const;
};

/// Paints the ticks. What would stand on the same place is painted once.
void PaintTicks(QPainter& painter, const std::vector<ClassPicture::QuestionTick>& questions,
                const TickPlaces& places, const TimeScale& time, const PageStyle& style);
/// Paints one question so that it stands out.
void PaintMarkedTick(QPainter& painter, const ClassPicture::QuestionTick& question,
                     const TickPlaces& places, const TimeScale& time, const PageStyle& style);

/// Paints a single mark, or the ring of a question without a response.
void PaintMark(QPainter& painter, QuestionMark mark, const QPointF& at, double radius);
void PaintRing(QPainter& painter, const QPointF& at, double radius);

/// The question whose tick is nearest to `point` on its side of the line, at most `reach` away.
std::optional<std::size_t> TickAt(const std::vector<ClassPicture::QuestionTick>& questions,
                                  const TickPlaces& places, const TimeScale& time,
                                  const QPointF& point, double reach);

}  // namespace orvex
