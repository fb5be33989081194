#include "ui/widgets/OfftaskButton.h"

#include <QPainter>

namespace orvex {
namespace {

constexpr qreal kTextSize = 1.35;
constexpr int kMargin = 10;
constexpr int kBorder = 2;
constexpr QColor kAmber(255, 176, 0);
constexpr QColor kBlack(20, 20, 20);

}  // namespace

OfftaskButton::OfftaskButton(QWidget* parent) : CommandButton(parent) {
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * kTextSize);
  large.setBold(true);
  setFont(large);
  setAccessibleName(tr("* OFFTASK *"));
}

void OfftaskButton::ShowPending(int count) {
  if (count == pending_) return;
  pending_ = count;
  setAccessibleDescription(tr("%1 pending").arg(count));
  update();
}

void OfftaskButton::ShowAs(const OfftaskButton& other) {
  if (text() != other.text()) {
    setText(other.text());
    setShortcut(QKeySequence());  // the key is the other's
  }
  ShowPending(other.pending_);
}

/// Leaves room for the caption and any number, so that the size never changes.
QSize OfftaskButton::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  const int text = metrics.horizontalAdvance(tr("* OFFTASK *  99"));
  return {text + 2 * kMargin, metrics.height() + kMargin};
}

void OfftaskButton::paintEvent(QPaintEvent* /*event*/) {
  const bool lit = !text().isEmpty();
  const QColor ink = lit ? kBlack : kAmber;
  QPainter painter(this);
  painter.setPen(QPen(ink, kBorder));
  painter.setBrush(lit ? kAmber : kBlack);
  painter.drawRect(rect().adjusted(kBorder / 2, kBorder / 2, -kBorder, -kBorder));
  const QRect inside = rect().adjusted(kMargin, 0, -kMargin, 0);
  painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
  painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter, QString::number(pending_));
  if (!hasFocus()) return;
  painter.setPen(QPen(ink, 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(2 * kBorder, 2 * kBorder, -2 * kBorder - 1, -2 * kBorder - 1));
}

}  // namespace orvex
