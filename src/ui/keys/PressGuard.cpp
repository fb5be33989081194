#include "ui/keys/PressGuard.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace orvex {

PressGuard::PressGuard(QWidget* control) : QObject(control), control_(control) {
  control->installEventFilter(this);
}

bool PressGuard::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::WindowUnblocked) {
    // The press that raised the question arrives before the event loop's next turn.
    stale_ = true;
    QTimer::singleShot(0, this, [this] { stale_ = false; });
  }
  // The second of two quick presses arrives as a double click.
  if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick) {
    return false;
  }
  const QWidget* proxy = control_->focusProxy();
  return stale_ || control_->window()->focusWidget() != (proxy ? proxy : control_);
}

}  // namespace orvex
