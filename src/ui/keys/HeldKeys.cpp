#include "ui/keys/HeldKeys.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>

namespace orvex {
namespace {

bool CountsOnce(const QObject* watched, const QKeyEvent& press) {
  switch (press.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return true;
    case Qt::Key_Down:
      return qobject_cast<const QLineEdit*>(watched) != nullptr;
    default:
      break;
  }
  if (press.key() >= Qt::Key_F1 && press.key() <= Qt::Key_F35) return true;
  // Space presses a button and a letter may select one: neither may repeat while held.
  const bool character = press.key() < Qt::Key_Escape;
  if (character && qobject_cast<const QAbstractButton*>(watched)) return true;
  const Qt::KeyboardModifiers modifiers = press.modifiers();
  return modifiers.testFlag(Qt::AltModifier) ||
         (press.key() == Qt::Key_N && modifiers.testFlag(Qt::ControlModifier));
}

}  // namespace

bool HeldKeys::IsRepeat(const QKeyEvent& press) const {
  // Qt does not flag every repeat of a held key. The display gives the release and press of a
  // repeat the same timestamp.
  return press.isAutoRepeat() ||
         (press.key() == releasedKey_ && releasedAt_ != 0 && press.timestamp() == releasedAt_);
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyRelease: {
      const auto* release = static_cast<QKeyEvent*>(event);
      releasedKey_ = release->key();
      releasedAt_ = release->timestamp();
      return false;
    }
    case QEvent::ShortcutOverride: {
      // An accepted override comes back as a key press instead of the shortcut.
      const auto* press = static_cast<QKeyEvent*>(event);
      const bool held = IsRepeat(*press) && CountsOnce(watched, *press);
      event->setAccepted(held);
      return held;
    }
    case QEvent::KeyPress: {
      const auto* press = static_cast<QKeyEvent*>(event);
      return IsRepeat(*press) && CountsOnce(watched, *press);
    }
    default:
      return false;
  }
}

}  // namespace orvex
