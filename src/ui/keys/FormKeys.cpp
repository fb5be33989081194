#include "ui/keys/FormKeys.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcutEvent>
#include <algorithm>
#include <utility>

#include "ui/keys/FocusReturn.h"
#include "ui/keys/PressGuard.h"
#include "ui/show.h"

namespace orvex {
namespace {

/// True for Alt with a letter, with or without Shift.
bool IsMnemonic(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::ShiftModifier;
  return modifiers == Qt::AltModifier && !key.text().isEmpty();
}

/// What the wheel changes: a list or a box of numbers.
bool TakesWheel(const QWidget* control) {
  return qobject_cast<const QComboBox*>(control) || qobject_cast<const QAbstractSpinBox*>(control);
}

void GuardList(QComboBox* list) {
  new PressGuard(list);
  if (list->lineEdit()) new PressGuard(list->lineEdit());
}

void ScrollIntoSight(QWidget* control, Qt::FocusReason reason) {
  // A button must not move away from under the mouse that is about to press it.
  if (reason == Qt::MouseFocusReason && qobject_cast<QAbstractButton*>(control)) return;
  for (QWidget* around = control; !around->isWindow(); around = around->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(around);
    if (area && around != control) area->ensureWidgetVisible(control);
  }
}

}  // namespace

FormKeys::FormKeys(QWidget* form) : FormKeys(form, Special{}) {}

FormKeys::FormKeys(QWidget* form, Special special) : QObject(form), special_(std::move(special)) {
  for (QWidget* child : form->findChildren<QWidget*>()) {
    // So that the wheel does not focus it.
    if (TakesWheel(child)) child->setFocusPolicy(Qt::StrongFocus);
  }
  for (QComboBox* list : form->findChildren<QComboBox*>()) GuardList(list);
  for (QAbstractButton* button : special_.asking) new FocusReturn(button);
  form->installEventFilter(this);
  for (QWidget* child : form->findChildren<QWidget*>()) {
    const bool hasOwnKeys = qobject_cast<QMenu*>(child) != nullptr;
    if (!hasOwnKeys) child->installEventFilter(this);
  }
}

bool FormKeys::eventFilter(QObject* watched, QEvent* event) {
  auto* control = static_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      return TakeOverride(control, *static_cast<QKeyEvent*>(event));
    case QEvent::KeyPress:
      return TakeKey(control, *static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
      ScrollIntoSight(control, static_cast<QFocusEvent*>(event)->reason());
      return false;
    case QEvent::Shortcut:
      return TakeShortcut(control, *static_cast<QShortcutEvent*>(event));
    case QEvent::Wheel:
      if (control->hasFocus() || !TakesWheel(control)) return false;
      event->ignore();
      return true;
    default:
      return false;
  }
}

/// Decides whether a key is a shortcut or comes back as a press. False leaves that to Qt.
bool FormKeys::TakeOverride(const QWidget* control, QKeyEvent& key) const {
  const bool isPress = special_.letters && special_.letters(control, key);
  const bool isShortcut = special_.shortcuts && special_.shortcuts(key);
  if (isPress || isShortcut) key.setAccepted(isPress);
  return isPress || isShortcut;
}

bool FormKeys::TakeKey(QWidget* control, const QKeyEvent& key) const {
  if (QAbstractButton* button = special_.letters ? special_.letters(control, key) : nullptr) {
    button->setFocus(Qt::ShortcutFocusReason);
    button->click();
    return true;
  }
  if (IsMnemonic(key)) return true;
  if (special_.shortcuts && special_.shortcuts(key)) return true;
  if (special_.own && special_.own(control, key)) return true;
  return IsEnter(key) && TakeEnter(control);
}

/// Checks a box or an option at once. Qt would show it pressed for a while first, and a key that
/// follows quickly would come before the change.
bool FormKeys::TakeShortcut(QWidget* control, const QShortcutEvent& shortcut) const {
  const bool isBox = qobject_cast<QCheckBox*>(control) || qobject_cast<QRadioButton*>(control);
  if (!isBox || shortcut.isAmbiguous()) return false;
  control->setFocus(Qt::ShortcutFocusReason);
  static_cast<QAbstractButton*>(control)->click();
  return true;
}

bool FormKeys::TakeEnter(QWidget* control) const {
  if (qobject_cast<QPlainTextEdit*>(control)) return false;
  const auto pressed = std::ranges::find(special_.pressedByEnter, control);
  if (pressed != special_.pressedByEnter.end()) {
    (*pressed)->click();
  } else if (special_.next) {
    FocusVisibly(special_.next(control));
  }
  return true;
}

}  // namespace orvex
