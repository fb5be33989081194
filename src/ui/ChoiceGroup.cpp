#include "ui/ChoiceGroup.h"

#include <QKeyEvent>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "ui/PressGuard.h"
#include "ui/show.h"

namespace orvex {

ChoiceGroup::ChoiceGroup(std::vector<QRadioButton*> buttons, QObject* parent)
    : QObject(parent), buttons_(std::move(buttons)) {
  for (int position = 0; position < Count(); ++position) {
    QRadioButton* button = Button(position);
    button->setAutoExclusive(false);
    button->installEventFilter(this);
    new PressGuard(button);
    connect(button, &QRadioButton::clicked, this, [this, position] {
      // A click has switched the button already; what is selected is the logic's to say.
      ShowSelected(selected_);
      Q_EMIT Chosen(position);
    });
  }
  SetTabStop(0);
}

QRadioButton* ChoiceGroup::Button(int position) const {
  return buttons_.at(static_cast<std::size_t>(position));
}

int ChoiceGroup::PositionOf(const QObject* button) const {
  const auto found = std::find(buttons_.begin(), buttons_.end(), button);
  return static_cast<int>(found - buttons_.begin());
}

void ChoiceGroup::ShowSelected(int position) {
  if (position >= 0 && position != selected_) SetTabStop(position);
  selected_ = position;
  for (int i = 0; i < Count(); ++i) Button(i)->setChecked(i == position);
}

void ChoiceGroup::SetVisible(bool visible) {
  for (QRadioButton* button : buttons_) button->setVisible(visible);
}

void ChoiceGroup::SetEnabled(bool enabled) {
  for (QRadioButton* button : buttons_) button->setEnabled(enabled);
}

void ChoiceGroup::Focus(int position) {
  SetTabStop(position);
  FocusVisibly(Button(position));
}

void ChoiceGroup::SetTabStop(int position) {
  for (int i = 0; i < Count(); ++i) {
    Button(i)->setFocusPolicy(i == position ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

bool ChoiceGroup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) SetTabStop(PositionOf(watched));
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
  if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return false;
  return MoveOnKey(PositionOf(watched), key->key(), key->text());
}

bool ChoiceGroup::MoveOnKey(int from, int key, const QString& text) {
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
