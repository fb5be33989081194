#include "ui/widgets/CommandButton.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QShortcutEvent>
#include <QStyleOptionButton>
#include <QToolTip>

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

QSize CommandButton::minimumSizeHint() const {
  return QPushButton::minimumSizeHint().expandedTo(least_);
}

QSize CommandButton::sizeHint() const {
  return QPushButton::sizeHint().expandedTo(least_);
}

bool CommandButton::event(QEvent* event) {
  // A least size counts even where the caption takes more, so it becomes a part of the hints.
  if (event->type() == QEvent::Polish) {
    least_ = minimumSize();
    // A button that is stretched to any width has no hint of its width.
    const bool ignoresHint = sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
    setMinimumSize(ignoresHint ? sizeHint().width() : 0, 0);
  }
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
    const QPoint place = static_cast<QHelpEvent*>(event)->globalPos();
    QToolTip::showText(place, shortcut().toString(QKeySequence::NativeText), this);
    return true;
  }
  if (event->type() != QEvent::Shortcut) return QPushButton::event(event);
  // When two buttons share a key, Qt would focus them in turn, and the next Space would press one.
  if (static_cast<QShortcutEvent*>(event)->isAmbiguous()) return true;
  setFocus(Qt::ShortcutFocusReason);
  // The window's own focus counts, even while a question has taken the active window.
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
