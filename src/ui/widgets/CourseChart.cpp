#include "ui/widgets/CourseChart.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "agreement/figure_text.h"
#include "ui/text.h"

namespace orvex {
namespace {

constexpr double kGap = 18;         // between two plots
constexpr double kLeastChars = 44;  // the least width of a plot, in characters
constexpr double kPlotLines = 10;   // the height of a plot without its texts, in lines
constexpr double kStep = 0.2;       // between two lines of the scale
constexpr double kUsualLowest = -0.2;
constexpr double kMark = 0.22;  // the radius of a point, in lines

QColor Faint(QColor colour, float strength) {
  colour.setAlphaF(strength);
  return colour;
}

/// A day as the files write it.
QString TextOf(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  const auto digits = [](unsigned number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
  };
  return QStringLiteral("%1-%2-%3")
      .arg(digits(static_cast<unsigned>(date.month())), digits(static_cast<unsigned>(date.day())),
           QString::number(static_cast<int>(date.year())));
}

int PlotsBeside(const QFontMetricsF& metrics, double width) {
  const double least = CourseChart::LeastWidth(metrics);
  return std::max(1, static_cast<int>((width + kGap) / (least + kGap)));
}

}  // namespace

CourseChart::CourseChart(std::vector<KappaCourse> courses)
    : courses_(std::move(courses)), lowest_(kUsualLowest) {
  bool isFirst = true;
  for (const KappaCourse& course : courses_) {
    for (const KappaOfDay& point : course.points) {
      lowest_ = std::min(lowest_, std::floor(point.kappa / kStep) * kStep);
      first_ = isFirst ? point.day : std::min(first_, point.day);
      last_ = isFirst ? point.day : std::max(last_, point.day);
      isFirst = false;
    }
  }
}

double CourseChart::LeastWidth(const QFontMetricsF& metrics) {
  return std::ceil(kLeastChars * metrics.averageCharWidth());
}

int CourseChart::Rows(const QFontMetricsF& metrics, double width) const {
  const int beside = PlotsBeside(metrics, width);
  return (static_cast<int>(courses_.size()) + beside - 1) / beside;
}

/// The caption, the plot, the dates beneath it, and some room.
double CourseChart::HeightOfRow(const QFontMetricsF& metrics) {
  return std::ceil((kPlotLines + 4) * metrics.height());
}

void CourseChart::PaintRow(QPainter& painter, const QRectF& area, int row,
                           const QPalette& palette) const {
  const QFontMetricsF metrics(painter.font());
  const int beside = PlotsBeside(metrics, area.width());
  const double width = (area.width() - kGap * (beside - 1)) / beside;
  for (int i = 0; i < beside; ++i) {
    const auto course = static_cast<std::size_t>(row * beside + i);
    if (course >= courses_.size()) return;
    const QRectF place(area.left() + i * (width + kGap), area.top(), width, area.height());
    PaintPlot(painter, place, courses_[course], palette);
  }
}

QString CourseChart::CaptionOf(const KappaCourse& course) {
  QString caption = course.points.size() == 1
                        ? tr("%1: 1 pair").arg(ToQt(course.observer))
                        : tr("%1: %2 pairs").arg(ToQt(course.observer)).arg(course.points.size());
  if (course.undefined > 0) caption += tr(", %1 without a kappa").arg(course.undefined);
  if (course.undated > 0) caption += tr(", %1 without a date").arg(course.undated);
  return caption;
}

QPointF CourseChart::PlaceOf(const QRectF& plot, const KappaOfDay& point) const {
  const auto days = static_cast<double>((last_ - first_).count());
  const double share = days > 0 ? static_cast<double>((point.day - first_).count()) / days : 0.5;
  const double height = (point.kappa - lowest_) / (1 - lowest_);
  return {plot.left() + share * plot.width(), plot.bottom() - height * plot.height()};
}

void CourseChart::PaintPlot(QPainter& painter, const QRectF& area, const KappaCourse& course,
                            const QPalette& palette) const {
  const QFontMetricsF metrics(painter.font());
  const double line = metrics.height();
  painter.save();
  QFont bold = painter.font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(palette.color(QPalette::WindowText));
  const QRectF captionArea(area.left(), area.top(), area.width(), line);
  painter.drawText(captionArea, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter),
                   QFontMetricsF(bold).elidedText(CaptionOf(course), Qt::ElideRight, area.width()));
  painter.restore();
  const double scale = metrics.horizontalAdvance(QStringLiteral("-0.2 "));
  const QRectF plot(area.left() + scale, area.top() + 1.6 * line, area.width() - scale - line / 2,
                    kPlotLines * line);
  PaintScales(painter, plot, palette);
  QPolygonF places;
  for (const KappaOfDay& point : course.points) places << PlaceOf(plot, point);
  const QColor colour = palette.color(QPalette::Highlight);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, 1.5));
  painter.drawPolyline(places);
  painter.setPen(QPen(palette.color(QPalette::WindowText), 1));
  painter.setBrush(colour);
  for (const QPointF& place : places) painter.drawEllipse(place, kMark * line, kMark * line);
}

void CourseChart::PaintScales(QPainter& painter, const QRectF& plot,
                              const QPalette& palette) const {
  const QColor ink = palette.color(QPalette::WindowText);
  const QFontMetricsF metrics(painter.font());
  const double line = metrics.height();
  const auto steps = static_cast<int>(std::lround((1 - lowest_) / kStep));
  for (int i = 0; i <= steps; ++i) {
    const double kappa = 1 - i * kStep;
    const double y = plot.top() + plot.height() * i / steps;
    const bool isZero = std::abs(kappa) < kStep / 2;
    painter.setPen(QPen(Faint(ink, isZero ? 0.7F : 0.2F), 1));
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    painter.setPen(ink);
    painter.drawText(QRectF(plot.left() - 100, y - line / 2, 95, line),
                     static_cast<int>(Qt::AlignRight | Qt::AlignVCenter),
                     QString::number(isZero ? 0.0 : kappa, 'g', 2));
  }
  const QRectF dates(plot.left(), plot.bottom() + line / 4, plot.width(), line);
  const auto write = [&](Qt::Alignment side, const QString& text) {
    painter.drawText(dates, static_cast<int>(side | Qt::AlignVCenter), text);
  };
  if (first_ == last_) {
    write(Qt::AlignHCenter, TextOf(first_));
  } else {
    write(Qt::AlignLeft, TextOf(first_));
    write(Qt::AlignRight, TextOf(last_));
    write(Qt::AlignHCenter, tr("day of the class"));
  }
  painter.drawText(QRectF(plot.left() + line / 3, plot.bottom() - line * 1.2, plot.width(), line),
                   static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), tr("kappa"));
}

QString CourseChart::Text() const {
  QString text;
  for (const KappaCourse& course : courses_) {
    if (!text.isEmpty()) text += QLatin1Char('\n');
    text += CaptionOf(course);
    for (const KappaOfDay& point : course.points) {
      text += QStringLiteral("\n%1\t%2").arg(TextOf(point.day), ToQt(FigureText(point.kappa)));
    }
  }
  return text;
}

}  // namespace orvex
