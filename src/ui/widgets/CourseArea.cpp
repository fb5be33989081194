#include "ui/widgets/CourseArea.h"

#include <QPainter>
#include <cmath>
#include <utility>

namespace orvex {

CourseArea::CourseArea(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void CourseArea::Show(CourseChart chart) {
  chart_ = std::move(chart);
  setAccessibleDescription(chart_.Text());
  updateGeometry();
  update();
}

QSize CourseArea::minimumSizeHint() const {
  const QFontMetricsF metrics(font());
  return {static_cast<int>(std::ceil(CourseChart::LeastWidth(metrics))),
          static_cast<int>(CourseChart::HeightOfRow(metrics))};
}

int CourseArea::heightForWidth(int width) const {
  const QFontMetricsF metrics(font());
  return static_cast<int>(chart_.Rows(metrics, width) * CourseChart::HeightOfRow(metrics));
}

void CourseArea::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QFontMetricsF metrics(font());
  const double height = CourseChart::HeightOfRow(metrics);
  const int rows = chart_.Rows(metrics, width());
  for (int row = 0; row < rows; ++row) {
    chart_.PaintRow(painter, {0, row * height, static_cast<double>(width()), height}, row,
                    palette());
  }
}

}  // namespace orvex
