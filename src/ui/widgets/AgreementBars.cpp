#include "ui/widgets/AgreementBars.h"

#include <QPainter>
#include <cmath>
#include <utility>

namespace orvex {

AgreementBars::AgreementBars(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void AgreementBars::Show(std::vector<AgreementLine> lines) {
  chart_ = AgreementChart(std::move(lines));
  setAccessibleDescription(chart_.Text());
  updateGeometry();
  update();
}

QSize AgreementBars::minimumSizeHint() const {
  const QFontMetricsF metrics(font());
  return {static_cast<int>(std::ceil(chart_.LeastWidth(metrics))),
          static_cast<int>(std::ceil(chart_.Height(metrics)))};
}

void AgreementBars::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  chart_.Paint(painter, rect(), palette());
}

}  // namespace orvex
