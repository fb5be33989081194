#include "ui/PressGuard.h"

#include <QAbstractButton>
#include <QEvent>
#include <QTimer>

namespace orvex {

PressGuard::PressGuard(QAbstractButton* button) : QObject(button), button_(button) {
  button->installEventFilter(this);
}

bool PressGuard::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::WindowUnblocked) {
    // A press that raised the question follows before the next turn of the event loop.
    stale_ = true;
    QTimer::singleShot(0, this, [this] { stale_ = false; });
  }
  if (event->type() != QEvent::MouseButtonPress) return false;
  return stale_ || button_->window()->focusWidget() != button_;
}

}  // namespace orvex
