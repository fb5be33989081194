#include "ui/widgets/CommandButton.h"

#include <QKeyEvent>
#include <QShortcutEvent>
#include <QStyleOptionButton>

#include "ui/keys/PressGuard.h"

namespace orvex {

CommandButton::CommandButton(QWidget* parent) : QPushButton(parent) {
  setAutoDefault(false);
  new PressGuard(this);
}

void CommandButton::SetOtherKey(const QString& key) {
  otherKey_ = key;
  grabShortcut(QKeySequence(key));
  setToolTip(key);
}

bool CommandButton::event(QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QPushButton::event(event);
  // Of two buttons Qt would let each have the focus in turn, and the next blank would press one.
  if (static_cast<QShortcutEvent*>(event)->isAmbiguous()) return true;
  setFocus(Qt::ShortcutFocusReason);
  // A window that a question has sent to the back has its focus all the same.
  if (window()->focusWidget() == this) click();
  return true;
}

void CommandButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  const bool marksItsKey = shortcut() == QKeySequence::mnemonic(text());
  if (!marksItsKey) option->text.remove(QLatin1Char('&'));
}

void CommandButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    event->ignore();
    return;
  }
  QPushButton::keyPressEvent(event);
}

}  // namespace orvex
