#include "ui/keys/RovingFocus.h"

#include <QKeyEvent>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "ui/show.h"

namespace orvex {

RovingFocus::RovingFocus(std::vector<QAbstractButton*> buttons, QObject* parent, int across)
    : QObject(parent), buttons_(std::move(buttons)), across_(across) {
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

void RovingFocus::SetEntry(int position) {
  entry_ = position;
  if (!HasFocus()) SetTabStop(entry_);
}

bool RovingFocus::HasFocus() const {
  return std::ranges::any_of(buttons_, &QWidget::hasFocus);
}

void RovingFocus::SetTabStop(int position) {
  for (int i = 0; i < Count(); ++i) {
    Button(i)->setFocusPolicy(i == position ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

bool RovingFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) SetTabStop(PositionOf(watched));
  if (event->type() == QEvent::FocusOut) SetTabStop(entry_);
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
  if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return false;
  return MoveOnKey(PositionOf(watched), key->key(), key->text());
}

/// Moves the focus by `steps`. Single steps wrap around; a move to the next column stops at the
/// edge.
bool RovingFocus::MoveBy(int from, int steps) {
  const int to = from + steps;
  if (steps == 1 || steps == -1) {
    Focus((to + Count()) % Count());
  } else if (to >= 0 && to < Count()) {
    Focus(to);
  }
  return true;
}

bool RovingFocus::MoveOnKey(int from, int key, const QString& text) {
  switch (key) {
    case Qt::Key_Down:
      return MoveBy(from, 1);
    case Qt::Key_Up:
      return MoveBy(from, -1);
    case Qt::Key_Right:
      return MoveBy(from, across_);
    case Qt::Key_Left:
      return MoveBy(from, -across_);
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
