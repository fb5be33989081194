#include "ui/picture/ClassStrip.h"

#include <QCoreApplication>
#include <QLineF>
#include <QList>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "ui/picture/PageStyle.h"
#include "ui/picture/TimeChart.h"

namespace orvex {
namespace {

using Asker = ClassPicture::Asker;
using QuestionTick = ClassPicture::QuestionTick;

// Shares of the height of a row, on each side of its middle.
constexpr double kBlocks = 0.16;
constexpr double kTick = 0.15;
constexpr double kAuthenticTick = 0.22;
constexpr double kRadius = 0.08;

constexpr double kMostRadius = 0.2;   // in heights of a small line
constexpr double kLeastApart = 0.35;  // what is nearer stands on the same place
constexpr double kTickWidth = 0.9;

QString Tr(const char* text) {
  return QCoreApplication::translate("ClassStrip", text);
}

QRectF BlocksOf(const QRectF& row) {
  const double inset = (0.5 - kBlocks) * row.height();
  return row.adjusted(0, inset, 0, -inset);
}

/// The tick of a question at `x`, from the blocks outwards.
QLineF TickOf(const QRectF& row, double x, const QuestionTick& question) {
  const double outwards = question.asker == Asker::teacher ? -row.height() : row.height();
  const double length = question.isAuthentic ? kAuthenticTick : kTick;
  const double middle = row.center().y();
  return {x, middle + kBlocks * outwards, x, middle + (kBlocks + length) * outwards};
}

void PaintTicks(QPainter& painter, const QRectF& row, const TimeScale& time,
                const std::vector<QuestionTick>& questions, const PageStyle& style) {
  // By asker, of plain ticks and authentic ones.
  std::array<std::array<double, 2>, 2> last;
  for (auto& ofAsker : last) ofAsker.fill(-std::numeric_limits<double>::infinity());
  QList<QLineF> ticks;
  QList<QPointF> dots;
  for (const QuestionTick& question : questions) {
    if (!time.Shows(question.second)) continue;
    const double x = time.X(question.second);
    double& before = last[static_cast<std::size_t>(question.asker)][question.isAuthentic ? 1 : 0];
    if (std::abs(x - before) < kLeastApart) continue;
    before = x;
    ticks.append(TickOf(row, x, question));
    if (question.isAuthentic) dots.append(ticks.back().p2());
  }
  QPen pen = style.Pen(style.ink, kTickWidth);
  pen.setCapStyle(Qt::FlatCap);
  painter.setPen(pen);
  painter.drawLines(ticks);
  const double radius = std::min(kRadius * row.height(), kMostRadius * style.smallLine);
  painter.setPen(Qt::NoPen);
  painter.setBrush(style.ink);
  for (const QPointF& dot : dots) painter.drawEllipse(dot, radius, radius);
}

/// Paints the sign of a class that goes on, from `left`.
void PaintArrow(QPainter& painter, const QRectF& row, double left, const PageStyle& style) {
  const QRectF blocks = BlocksOf(row);
  const std::array corners = {QPointF(left, blocks.top()),
                              QPointF(left + blocks.height(), blocks.center().y()),
                              QPointF(left, blocks.bottom())};
  painter.setPen(Qt::NoPen);
  painter.setBrush(style.ink);
  painter.drawConvexPolygon(corners.data(), static_cast<int>(corners.size()));
}

/// A row in the legend, a little higher than its line.
QRectF SampleOf(const QRectF& place) {
  const double more = 0.2 * place.height();
  return place.adjusted(0, -more, 0, more);
}

}  // namespace

void PaintStrip(QPainter& painter, const QRectF& row, const TimeScale& time,
                const ClassPicture& picture, const PageStyle& style) {
  const QRectF blocks = BlocksOf(row);
  for (const ClassPicture::SegmentBlock& segment : picture.segments) {
    const QRectF block = Across(blocks, time, segment.time);
    if (!block.isEmpty()) PaintBlock(painter, block, GroundOf(segment, style), style);
  }
  PaintTicks(painter, row, time, picture.questions, style);
  if (picture.seconds > time.shown.end) PaintArrow(painter, row, time.right, style);
}

PageLegend StripLegend(const StudyPicture& picture, const PageStyle& style) {
  PageLegend legend(style);
  const auto add = [&](const QString& text, Asker asker, bool isAuthentic) {
    legend.Add(text, [&style, asker, isAuthentic](QPainter& painter, const QRectF& place) {
      painter.fillRect(BlocksOf(SampleOf(place)), style.thin);
      const TimeScale time = {{0, 1}, place.left(), place.right()};
      PaintTicks(painter, SampleOf(place), time,
                 {{.second = 0.5, .asker = asker, .isAuthentic = isAuthentic, .text = {}}}, style);
    });
  };
  add(Tr("Teacher's question: above"), Asker::teacher, false);
  add(Tr("Student's question: below"), Asker::student, false);
  add(Tr("Authentic question"), Asker::teacher, true);
  if (picture.AnyGoesBeyondAxis()) {
    legend.Add(Tr("Class goes on beyond the axis"),
               [&style](QPainter& painter, const QRectF& place) {
                 PaintArrow(painter, SampleOf(place), place.left(), style);
               });
  }
  return legend;
}

}  // namespace orvex
