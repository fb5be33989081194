#include "ui/RovingFocus.h"

#include <QKeyEvent>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "ui/show.h"

namespace orvex {

RovingFocus::RovingFocus(std::vector<QAbstractButton*> buttons, QObject* parent)
    : QObject(parent), buttons_(std::move(buttons)) {
  for (QAbstractButton* button : buttons_) button->installEventFilter(this);
  SetTabStop(0);
}

QAbstractButton* RovingFocus::Button(int position) const {
  return buttons_.at(static_cast<std::size_t>(position));
}

int RovingFocus::PositionOf(const QObject* button) const {
  const auto found = std::find(buttons_.begin(), buttons_.end(), button);
  return static_cast<int>(found - buttons_.begin());
}

void RovingFocus::Focus(int position) {
  SetTabStop(position);
  FocusVisibly(Button(position));
}

void RovingFocus::SetTabStop(int position) {
  for (int i = 0; i < Count(); ++i) {
    Button(i)->setFocusPolicy(i == position ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

bool RovingFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) SetTabStop(PositionOf(watched));
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
  if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return false;
  return MoveOnKey(PositionOf(watched), key->key(), key->text());
}

bool RovingFocus::MoveOnKey(int from, int key, const QString& text) {
  switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Right:
      Focus((from + 1) % Count());
      return true;
    case Qt::Key_Up:
    case Qt::Key_Left:
      Focus((from + Count() - 1) % Count());
      return true;
    case Qt::Key_Home:
      Focus(0);
      return true;
    case Qt::Key_End:
      Focus(Count() - 1);
      return true;
    default:
      break;
  }
  if (text.size() != 1 || !text.at(0).isLetter()) return false;
  for (int step = 1; step <= Count(); ++step) {
    const int position = (from + step) % Count();
    if (!Button(position)->text().startsWith(text, Qt::CaseInsensitive)) continue;
    Focus(position);
    return true;
  }
  return false;
}

}  // namespace orvex
