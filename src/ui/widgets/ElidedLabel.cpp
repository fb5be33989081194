#include "ui/widgets/ElidedLabel.h"

#include <QEvent>
#include <QStyle>
#include <QStylePainter>
#include <QTextDocument>

namespace orvex {

QSize ElidedLabel::minimumSizeHint() const {
  const QMargins around = contentsMargins();
  return {0, fontMetrics().height() + around.top() + around.bottom()};
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const bool isWhole = fontMetrics().horizontalAdvance(text()) <= contentsRect().width();
    setToolTip(isWhole ? QString() : Qt::convertFromPlainText(text()));
  }
  return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  const QRect place = contentsRect();
  QStylePainter(this).drawItemText(place, static_cast<int>(alignment()), palette(), isEnabled(),
                                   fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width()),
                                   foregroundRole());
}

}  // namespace orvex
