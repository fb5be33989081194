#include "ui/CommandButton.h"

#include <QKeyEvent>
#include <QShortcutEvent>

namespace orvex {

CommandButton::CommandButton(QWidget* parent) : QPushButton(parent) {
  setAutoDefault(false);
}

bool CommandButton::event(QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QPushButton::event(event);
  const auto* shortcut = static_cast<QShortcutEvent*>(event);
  // Two buttons of one mnemonic take turns in having the focus; Qt knows how.
  if (shortcut->isAmbiguous()) return QPushButton::event(event);
  setFocus(Qt::ShortcutFocusReason);
  if (hasFocus()) click();
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
