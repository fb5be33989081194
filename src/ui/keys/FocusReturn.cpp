#include "ui/keys/FocusReturn.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <utility>

namespace orvex {

FocusReturn::FocusReturn(QAbstractButton* button) : QObject(button), button_(button) {
  button->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, &FocusReturn::FocusMoved);
  connect(button, &QAbstractButton::clicked, this, &FocusReturn::Return);
}

bool FocusReturn::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason) {
      byPress_ = reason == Qt::ShortcutFocusReason || reason == Qt::MouseFocusReason;
    }
  }
  return false;
}

void FocusReturn::FocusMoved(QWidget* from, QWidget* to) {
  // Ignore the window losing focus and getting it back.
  if (!from || !to || from->window() != to->window()) return;
  if (to == button_) before_ = from;
  if (to == button_) pushedOff_ = false;
  if (from == button_) pushedOff_ = !button_->isVisible() || !button_->isEnabled();
}

void FocusReturn::Return() {
  const bool stayed = byPress_ && button_->window()->focusWidget() == button_;
  if (!stayed && !std::exchange(pushedOff_, false)) return;
  QWidget* before = before_;
  // The click may have hidden the whole form; it then remembers this focus for when it is shown
  // again.
  if (before && before->isVisibleTo(before->window()) && before->isEnabled()) {
    before->setFocus(Qt::ActiveWindowFocusReason);
  }
}

}  // namespace orvex
