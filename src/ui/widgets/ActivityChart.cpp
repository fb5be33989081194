#include "ui/widgets/ActivityChart.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "agreement/comparison.h"
#include "agreement/observer_name.h"
#include "model/activities.h"
#include "model/wording.h"
#include "ui/text.h"
#include "ui/widgets/ActivityColours.h"

namespace orvex {
namespace {

// Heights, in heights of a line of text.
constexpr double kTicks = 0.8;
constexpr double kStrip = 1.5;
constexpr double kBetween = 0.7;
constexpr double kAxis = 1.3;
constexpr double kLegend = 2.6;
constexpr int kLegendLines = 2;

constexpr double kGap = 8;
constexpr double kInset = 4;          // beside the text of a block
constexpr double kLongest = 86400;    // seconds; what lies beyond is not shown
constexpr double kLeastTickGap = 56;  // between two marks of the axis
constexpr double kHatchDistance = 5;

/// The activity at `second`; nothing outside the class.
std::optional<int> ActivityAt(const std::vector<ActivityStretch>& stretches, double second) {
  for (const ActivityStretch& stretch : stretches) {
    if (second >= stretch.begin && second < stretch.end) return stretch.activity;
  }
  return std::nullopt;
}

QString NameOf(std::optional<int> activity) {
  if (!activity) return ActivityChart::tr("not observed");
  const QString name = ToQt(ActivityName(*activity));
  return name.isEmpty() ? ActivityChart::tr("no activity") : name;
}

QString ShortNameOf(int activity) {
  return IsActivity(activity) ? ToQt(ActivityOf(activity).shortName)
                              : ToQt(ActivityDigits(activity));
}

bool HasLength(const auto& stretch) {
  return stretch.end > stretch.begin && std::abs(stretch.begin) < kLongest &&
         std::abs(stretch.end) < kLongest;
}

}  // namespace

/// Where everything stands in the area that is painted on.
struct ActivityChart::Places {
  double left = 0;
  double width = 0;
  double line = 0;
  double firstTicks = 0;
  double firstStrip = 0;
  double between = 0;
  double secondStrip = 0;
  double secondTicks = 0;
  double axis = 0;
  double legend = 0;
  double begin = 0;
  double end = 0;

  double X(double second) const {
    const double share = end > begin ? (second - begin) / (end - begin) : 0;
    return left + width * std::clamp(share, 0.0, 1.0);
  }
  QRectF Across(const auto& stretch, double top, double lines) const {
    const double from = X(stretch.begin);
    return {from, top, X(stretch.end) - from, lines * line};
  }
};

ActivityChart::ActivityChart(const Comparison& comparison) {
  const Agreement& agreement = comparison.Result();
  const double offset = agreement.offset.seconds;
  first_.name = ToQt(NameOfObserver(agreement, Side::first));
  second_.name = ToQt(NameOfObserver(agreement, Side::second));
  first_.stretches = StretchesOf(comparison.First().observation.Episodes, 0);
  second_.stretches = StretchesOf(comparison.Second().observation.Episodes, offset);
  differing_ = DifferingStretches(first_.stretches, second_.stretches);
  for (const PairRow& row : comparison.Rows()) {
    const bool isPaired = row.pair.IsOfBoth();
    if (row.first) first_.questions.push_back({row.first->second, isPaired});
    if (row.second) second_.questions.push_back({row.second->second + offset, isPaired});
  }
  begin_ = std::min(0.0, offset);
  end_ = begin_;
  for (Observer* observer : {&first_, &second_}) {
    std::erase_if(observer->stretches, [](const auto& stretch) { return !HasLength(stretch); });
    for (const ActivityStretch& stretch : observer->stretches) end_ = std::max(end_, stretch.end);
  }
  std::erase_if(differing_, [](const auto& stretch) { return !HasLength(stretch); });
}

double ActivityChart::Height(const QFontMetricsF& metrics) const {
  return std::ceil(metrics.height() * (2 * kTicks + 2 * kStrip + kBetween + kAxis + kLegend));
}

ActivityChart::Places ActivityChart::Place(const QFontMetricsF& metrics, const QRectF& area) const {
  Places places;
  const double names =
      std::max(metrics.horizontalAdvance(first_.name), metrics.horizontalAdvance(second_.name));
  places.left = area.left() + std::ceil(names) + kGap;
  places.width = std::max(1.0, area.right() - places.left - kGap);
  places.line = metrics.height();
  double top = area.top();
  for (const auto& [place, height] :
       {std::pair(&places.firstTicks, kTicks), std::pair(&places.firstStrip, kStrip),
        std::pair(&places.between, kBetween), std::pair(&places.secondStrip, kStrip),
        std::pair(&places.secondTicks, kTicks), std::pair(&places.axis, kAxis),
        std::pair(&places.legend, kLegend)}) {
    *place = top;
    top += height * places.line;
  }
  places.begin = begin_;
  places.end = end_;
  return places;
}

void ActivityChart::Paint(QPainter& painter, const QRectF& area, const QPalette& palette) const {
  const Places places = Place(QFontMetricsF(painter.font()), area);
  const QColor ink = palette.color(QPalette::WindowText);
  const double half = kTicks / 2 * places.line;
  PaintTicks(painter, places, places.firstTicks + half, first_, ink);
  PaintStrip(painter, places, places.firstStrip, first_, palette);
  PaintDiffering(painter, places, ink);
  PaintStrip(painter, places, places.secondStrip, second_, palette);
  PaintTicks(painter, places, places.secondTicks + half, second_, ink);
  PaintAxis(painter, places, ink);
  PaintLegend(painter, places, palette);
  if (!marked_) return;
  QRectF frame = places.Across(*marked_, places.firstStrip, 2 * kStrip + kBetween);
  frame.setWidth(std::max(frame.width(), 3.0));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(palette.color(QPalette::Window), 5));
  painter.drawRect(frame);
  painter.setPen(QPen(ink, 2.5));
  painter.drawRect(frame);
}

void ActivityChart::PaintStrip(QPainter& painter, const Places& places, double top,
                               const Observer& observer, const QPalette& palette) const {
  const QColor ink = palette.color(QPalette::WindowText);
  const QFontMetricsF metrics(painter.font());
  const double nameLeft = places.left - kGap - metrics.horizontalAdvance(observer.name);
  painter.setPen(ink);
  painter.drawText(QRectF(nameLeft, top, places.left - kGap - nameLeft, kStrip * places.line),
                   Qt::AlignRight | Qt::AlignVCenter, observer.name);
  for (const ActivityStretch& stretch : observer.stretches) {
    const QRectF block = places.Across(stretch, top, kStrip);
    const auto colour = ColourOf(stretch.activity);
    painter.fillRect(block, colour.value_or(palette.color(QPalette::Window)));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour ? palette.color(QPalette::Window) : ink, 1));
    painter.drawRect(block);
    const QString name = ShortNameOf(stretch.activity);
    if (metrics.horizontalAdvance(name) + 2 * kInset > block.width()) continue;
    painter.setPen(colour ? InkOn(*colour) : ink);
    painter.drawText(block, Qt::AlignCenter, name);
  }
}

/// A question of both is a line, one that only this observer has a ring.
void ActivityChart::PaintTicks(QPainter& painter, const Places& places, double middle,
                               const Observer& observer, const QColor& ink) const {
  const double radius = 0.2 * places.line;
  painter.setPen(QPen(ink, 1.4));
  for (const Tick& tick : observer.questions) {
    const double x = places.X(tick.second);
    if (tick.isPaired) {
      painter.drawLine(QPointF(x, middle - radius), QPointF(x, middle + radius));
    } else {
      painter.setBrush(Qt::NoBrush);
      painter.drawEllipse(QPointF(x, middle), radius, radius);
    }
  }
}

void ActivityChart::PaintDiffering(QPainter& painter, const Places& places,
                                   const QColor& ink) const {
  for (const SharedStretch& stretch : differing_) {
    QRectF band = places.Across(stretch, places.between, kBetween).adjusted(0, 2, 0, -2);
    band.setWidth(std::max(band.width(), 2.0));
    painter.save();
    painter.setClipRect(band, Qt::IntersectClip);
    painter.setPen(QPen(ink, 1.2));
    for (double x = band.left() - band.height(); x < band.right(); x += kHatchDistance) {
      painter.drawLine(QPointF(x, band.bottom()), QPointF(x + band.height(), band.top()));
    }
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 1));
    painter.drawRect(band);
  }
}

void ActivityChart::PaintAxis(QPainter& painter, const Places& places, const QColor& ink) const {
  constexpr std::array kSteps = {1, 2, 5, 10, 15, 30, 60, 120, 240, 480, 1440};  // minutes
  const double minutes = std::max(1.0, (end_ - begin_) / 60);
  const double most = std::max(1.0, places.width / kLeastTickGap);
  const auto* step =
      std::ranges::find_if(kSteps, [&](int minute) { return minutes / minute <= most; });
  const double every = 60.0 * (step == kSteps.end() ? kSteps.back() : *step);
  const QFontMetricsF metrics(painter.font());
  painter.setPen(QPen(ink, 1));
  painter.drawLine(QPointF(places.left, places.axis), QPointF(places.X(end_), places.axis));
  for (double second = std::ceil(begin_ / every) * every; second <= end_; second += every) {
    const double x = places.X(second);
    const QString text = tr("%1 min").arg(static_cast<int>(second / 60));
    const double width = metrics.horizontalAdvance(text) + 1;
    // The last one ends with the strips.
    const double left = std::min(x - width / 2, places.left + places.width + kGap - width);
    painter.drawLine(QPointF(x, places.axis), QPointF(x, places.axis + 4));
    painter.drawText(QRectF(left, places.axis + 4, width, places.line),
                     Qt::AlignLeft | Qt::AlignTop, text);
  }
}

void ActivityChart::PaintLegend(QPainter& painter, const Places& places,
                                const QPalette& palette) const {
  const QColor ink = palette.color(QPalette::WindowText);
  const QFontMetricsF metrics(painter.font());
  const double size = 0.7 * places.line;
  const double height = kLegend / kLegendLines * places.line;
  QRectF sign(places.left, places.legend + (height - size) / 2, size, size);
  // Paints a sign in its square and says what it stands for, on the next line when there is no
  // room.
  const auto add = [&](const QString& text, auto paintSign) {
    const double width = size + kGap / 2 + metrics.horizontalAdvance(text) + 1;
    if (sign.left() > places.left && sign.left() + width > places.left + places.width) {
      sign.moveTo(places.left, sign.top() + height);
    }
    painter.setPen(QPen(ink, 1.4));
    painter.setBrush(Qt::NoBrush);
    paintSign();
    painter.setPen(ink);
    painter.drawText(QRectF(sign.right() + kGap / 2, sign.center().y() - height / 2, width, height),
                     Qt::AlignLeft | Qt::AlignVCenter, text);
    sign.translate(width + 2 * kGap, 0);
  };
  for (std::size_t i = 0; i < kActivityGroups.size(); ++i) {
    add(ToQt(kActivityGroups[i].label), [&] {
      painter.setPen(QPen(ink, 1));
      painter.setBrush(ColourOf(static_cast<ActivityGroup>(i)));
      painter.drawRect(sign);
    });
  }
  add(tr("question of both"), [&] {
    painter.drawLine(QPointF(sign.center().x(), sign.top()),
                     QPointF(sign.center().x(), sign.bottom()));
  });
  add(tr("of one only"), [&] { painter.drawEllipse(sign.center(), size / 3, size / 3); });
}

QString ActivityChart::TextOf(const SharedStretch& stretch) const {
  return tr("%1 to %2: %3 %4, %5 %6")
      .arg(ToQt(FormatMinSec(stretch.begin)), ToQt(FormatMinSec(stretch.end)), first_.name,
           NameOf(stretch.first), second_.name, NameOf(stretch.second));
}

QString ActivityChart::TextAt(const QFontMetricsF& metrics, const QRectF& area, double x) const {
  const Places places = Place(metrics, area);
  if (x < places.left || x >= places.left + places.width) return {};
  const double second = begin_ + (end_ - begin_) * (x - places.left) / places.width;
  return tr("%1: %2 %3, %4 %5")
      .arg(ToQt(FormatMinSec(second)), first_.name, NameOf(ActivityAt(first_.stretches, second)),
           second_.name, NameOf(ActivityAt(second_.stretches, second)));
}

std::pair<double, double> ActivityChart::PlaceOf(const QFontMetricsF& metrics, const QRectF& area,
                                                 const SharedStretch& stretch) const {
  const Places places = Place(metrics, area);
  return {places.X(stretch.begin), places.X(stretch.end)};
}

}  // namespace orvex
