#include "ui/CommandButton.h"

#include <QKeyEvent>
#include <QShortcutEvent>

#include "ui/PressGuard.h"

namespace orvex {

CommandButton::CommandButton(QWidget* parent) : QPushButton(parent) {
  setAutoDefault(false);
  new PressGuard(this);
}

bool CommandButton::event(QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QPushButton::event(event);
  const auto* shortcut = static_cast<QShortcutEvent*>(event);
  // Two buttons of one mnemonic take turns in having the focus; Qt knows how.
  if (shortcut->isAmbiguous()) return QPushButton::event(event);
  setFocus(Qt::ShortcutFocusReason);
  // A window that a question has sent to the back has its focus all the same.
  if (window()->focusWidget() == this) click();
  return true;
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    event->ignore();
    return;
  }
  QPushButton::keyPressEvent(event);
}

}  // namespace orvex
