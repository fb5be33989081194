#include "ui/picture/OfftaskChart.h"

#include <QCoreApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/picture/PageStyle.h"
#include "ui/picture/TimeChart.h"

namespace orvex {
namespace {

constexpr double kRadius = 0.24;  // in heights of a line of text
constexpr double kLeastMost = 0.5;
constexpr int kMostPercent = 100;

QString Tr(const char* text) {
  return QCoreApplication::translate("OfftaskChart", text);
}

/// The end of the axis: the least multiple of a tenth that has room for all estimates.
double MostOf(const ClassPicture& picture) {
  double most = kLeastMost;
  for (const auto& estimate : picture.estimates) most = std::max(most, estimate.share.value_or(0));
  return std::ceil(most * 10 - 1e-6) / 10;
}

void PaintNote(QPainter& painter, const QRectF& area, const QString& note, const PageStyle& style) {
  painter.setFont(style.small);
  painter.setPen(style.quiet);
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                   Fitting(note, QFontMetricsF(style.small), area.width()));
}

}  // namespace

double RadiusOf(const PageStyle& style) {
  return kRadius * style.line;
}

void PaintEstimates(QPainter& painter, const QRectF& area, const TimeScale& time,
                    const ClassPicture& picture, const PageStyle& style) {
  PaintName(painter, area, Tr("Off task"), style);
  if (picture.estimates.empty()) {
    return PaintNote(
        painter, area,
        picture.hasLog
            ? Tr("The session log has no estimates.")
            : Tr("No session log tells the times: questions are spread over their segments, "
                 "and the estimates during the class are not known."),
        style);
  }
  const double most = MostOf(picture);
  const auto y = [&](double share) { return area.bottom() - share / most * area.height(); };
  for (const double share : {0.0, most / 2, most}) {
    painter.setPen(style.Pen(style.thin));
    painter.drawLine(QPointF(area.left(), y(share)), QPointF(area.right(), y(share)));
    painter.setPen(style.quiet);
    painter.setFont(style.small);
    const double width = 3 * style.line;
    painter.drawText(QRectF(area.left() - width - style.line / 3, y(share) - style.smallLine / 2,
                            width, style.smallLine),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                     Tr("%1 %").arg(std::lround(share * kMostPercent)));
  }
  for (const ClassPicture::EstimateDot& estimate : picture.estimates) {
    if (!time.Shows(estimate.second)) continue;
    const double x = time.X(estimate.second);
    if (estimate.share) {
      PaintEstimate(painter, {x, y(std::max(0.0, *estimate.share))}, style);
    } else {
      PaintMissed(painter, {x, y(0)}, style);
    }
  }
}

void PaintEstimate(QPainter& painter, const QPointF& at, const PageStyle& style) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(style.ink);
  painter.drawEllipse(at, RadiusOf(style), RadiusOf(style));
}

void PaintMissed(QPainter& painter, const QPointF& at, const PageStyle& style) {
  const double arm = 0.85 * RadiusOf(style);
  painter.setPen(style.Pen(style.ink, 1.3));
  painter.drawLine(at + QPointF(-arm, -arm), at + QPointF(arm, arm));
  painter.drawLine(at + QPointF(-arm, arm), at + QPointF(arm, -arm));
}

}  // namespace orvex
