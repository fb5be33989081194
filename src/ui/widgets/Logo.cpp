#include "ui/widgets/Logo.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPolygonF>
#include <algorithm>

namespace orvex {
namespace {

constexpr int kShownSize = 60;
constexpr int kIconSize = 128;

/// Draws the mark on a square of 32 by 32 units.
void Draw(QPainter& painter, const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Active, QPalette::Highlight);
  const QColor ink = palette.color(QPalette::Active, QPalette::HighlightedText);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(0, 0, 32, 32), 6, 6);

  painter.setBrush(ink);
  painter.drawRoundedRect(QRectF(6, 5, 20, 13), 3.5, 3.5);
  painter.drawPolygon(QPolygonF({QPointF(10, 17), QPointF(10, 22), QPointF(16, 17)}));

  painter.setBrush(ground);
  for (const qreal x : {11.0, 16.0, 21.0}) painter.drawEllipse(QPointF(x, 11.5), 1.6, 1.6);

  painter.setBrush(ink);
  for (const QRectF& segment :
       {QRectF(6, 24.5, 5, 3), QRectF(12, 24.5, 9, 3), QRectF(22, 24.5, 4, 3)}) {
    painter.drawRoundedRect(segment, 1, 1);
  }
}

}  // namespace

Logo::Logo(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Logo::sizeHint() const {
  return {kShownSize, kShownSize};
}

void Logo::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const qreal side = std::min(width(), height());
  painter.scale(side / 32, side / 32);
  Draw(painter, palette());
}

QIcon Logo::Icon() {
  QPixmap pixmap(kIconSize, kIconSize);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.scale(kIconSize / 32.0, kIconSize / 32.0);
  Draw(painter, QGuiApplication::palette());
  return QIcon(pixmap);
}

}  // namespace orvex
