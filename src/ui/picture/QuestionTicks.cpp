#include "ui/picture/QuestionTicks.h"

#include <QLineF>
#include <QList>
#include <QPainter>
#include <QPen>
#include <array>
#include <cmath>
#include <limits>

#include "ui/picture/PageStyle.h"

namespace orvex {
namespace {

using Asker = ClassPicture::Asker;
using QuestionTick = ClassPicture::QuestionTick;

constexpr double kStemShare = 0.34;   // of the half of the area
constexpr double kLabelled = 1.02;    // a lane with its name, in heights of a small line
constexpr double kLeastApart = 0.35;  // what is nearer stands on the same place
constexpr double kStemWidth = 0.9;
constexpr double kOutline = 1.1;

/// -1 for what stands above the line, 1 for what stands below.
double SideOf(Asker asker) {
  return asker == Asker::teacher ? -1 : 1;
}

/// Notes the places that are taken, from left to right.
class Taken {
 public:
  bool Take(double x) {
    if (std::abs(x - last_) < kLeastApart) return false;
    last_ = x;
    return true;
  }

 private:
  double last_ = -std::numeric_limits<double>::infinity();
};

constexpr std::array kMarks = {QuestionMark::authentic, QuestionMark::uptake,
                               QuestionMark::higherLevel};

/// The mark of a question that is farthest from the line.
std::optional<QuestionMark> OutermostMark(const QuestionTick& question) {
  std::optional<QuestionMark> outermost;
  for (const QuestionMark mark : kMarks) {
    if (Has(question, mark)) outermost = mark;
  }
  return outermost;
}

/// Where the tick of a question ends: at its outermost mark.
double EndOf(const QuestionTick& question, const TickPlaces& places) {
  const auto mark = OutermostMark(question);
  return mark ? places.Lane(question.asker, *mark) : places.Head(question.asker);
}

void PaintMarks(QPainter& painter, const QuestionTick& question, const TickPlaces& places, double x,
                double radius) {
  for (const QuestionMark mark : kMarks) {
    if (Has(question, mark)) {
      PaintMark(painter, mark, {x, places.Lane(question.asker, mark)}, radius);
    }
  }
}

}  // namespace

bool Has(const QuestionTick& question, QuestionMark mark) {
  switch (mark) {
    case QuestionMark::authentic:
      return question.isAuthentic;
    case QuestionMark::uptake:
      return question.isUptake;
    case QuestionMark::higherLevel:
      return question.isHigherLevel;
  }
  return false;
}

TickPlaces::TickPlaces(const QRectF& area, double markRadius)
    : middle(area.center().y()),
      stem(kStemShare * area.height() / 2),
      lane((1 - kStemShare) * area.height() / 2 / kQuestionMarks),
      radius(markRadius) {}

double TickPlaces::LeastHeight(const PageStyle& style) {
  return 2 * kQuestionMarks * kLabelled * style.smallLine / (1 - kStemShare);
}

double TickPlaces::Lane(Asker asker, QuestionMark mark) const {
  return middle + SideOf(asker) * (stem + lane * (static_cast<double>(mark) + 0.5));
}

double TickPlaces::Head(Asker asker) const {
  return middle + SideOf(asker) * stem;
}

void PaintTicks(QPainter& painter, const std::vector<QuestionTick>& questions,
                const TickPlaces& places, const TimeScale& time, const PageStyle& style) {
  // By asker and mark; the last is of questions without a mark, or without a response.
  using TakenByMark = std::array<std::array<Taken, kQuestionMarks + 1>, 2>;
  TakenByMark ended;
  QList<QLineF> stems;
  std::vector<const QuestionTick*> shown;
  for (const QuestionTick& question : questions) {
    if (!time.Shows(question.second)) continue;
    shown.push_back(&question);
    const double x = time.X(question.second);
    const auto mark = OutermostMark(question);
    auto& taken = ended[static_cast<std::size_t>(question.asker)];
    if ((mark ? taken[static_cast<std::size_t>(*mark)] : taken.back()).Take(x)) {
      stems.append(QLineF(x, places.middle, x, EndOf(question, places)));
    }
  }
  QPen stem = style.Pen(style.ink, kStemWidth);
  stem.setCapStyle(Qt::FlatCap);
  painter.setPen(stem);
  painter.drawLines(stems);
  for (const bool isUnanswered : {false, true}) {
    painter.setPen(style.Pen(style.ink, kOutline));
    painter.setBrush(isUnanswered ? style.paper : style.ink);
    TakenByMark marked;
    for (const QuestionTick* const question : shown) {
      if (question->isUnanswered != isUnanswered) continue;
      const double x = time.X(question->second);
      auto& taken = marked[static_cast<std::size_t>(question->asker)];
      for (const QuestionMark mark : kMarks) {
        if (!Has(*question, mark) || !taken[static_cast<std::size_t>(mark)].Take(x)) continue;
        PaintMark(painter, mark, {x, places.Lane(question->asker, mark)}, places.radius);
      }
      if (isUnanswered && taken.back().Take(x)) {
        PaintRing(painter, {x, places.Head(question->asker)}, places.radius);
      }
    }
  }
}

void PaintMarkedTick(QPainter& painter, const QuestionTick& question, const TickPlaces& places,
                     const TimeScale& time, const PageStyle& style) {
  if (!time.Shows(question.second)) return;
  const double x = time.X(question.second);
  painter.setPen(style.Pen(style.highlight, 3 * kStemWidth));
  painter.drawLine(QPointF(x, places.middle), QPointF(x, EndOf(question, places)));
  painter.setBrush(question.isUnanswered ? style.paper : style.highlight);
  painter.setPen(style.Pen(style.highlight, 2 * kOutline));
  PaintMarks(painter, question, places, x, places.radius);
  if (question.isUnanswered) {
    PaintRing(painter, {x, places.Head(question.asker)}, places.radius);
  }
  painter.drawLine(QPointF(x - 2 * places.radius, places.middle),
                   QPointF(x + 2 * places.radius, places.middle));
}

void PaintMark(QPainter& painter, QuestionMark mark, const QPointF& at, double radius) {
  switch (mark) {
    case QuestionMark::authentic:
      return painter.drawEllipse(at, radius, radius);
    case QuestionMark::uptake: {
      const std::array corners = {at + QPointF(0, -1.1 * radius),
                                  at + QPointF(1.1 * radius, 0.9 * radius),
                                  at + QPointF(-1.1 * radius, 0.9 * radius)};
      return painter.drawConvexPolygon(corners.data(), static_cast<int>(corners.size()));
    }
    case QuestionMark::higherLevel: {
      const double side = 1.25 * radius;
      const std::array corners = {at + QPointF(0, -side), at + QPointF(side, 0),
                                  at + QPointF(0, side), at + QPointF(-side, 0)};
      return painter.drawConvexPolygon(corners.data(), static_cast<int>(corners.size()));
    }
  }
}

void PaintRing(QPainter& painter, const QPointF& at, double radius) {
  painter.drawEllipse(at, 0.75 * radius, 0.75 * radius);
}

std::optional<std::size_t> TickAt(const std::vector<QuestionTick>& questions,
                                  const TickPlaces& places, const TimeScale& time,
                                  const QPointF& point, double reach) {
  std::optional<std::size_t> nearest;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    const QuestionTick& question = questions[i];
    if (!time.Shows(question.second)) continue;
    if (SideOf(question.asker) * (point.y() - places.middle) < 0) continue;
    const double away = std::abs(time.X(question.second) - point.x());
    if (away > reach || (nearest && away == reach)) continue;
    reach = away;
    nearest = i;
  }
  return nearest;
}

}  // namespace orvex
