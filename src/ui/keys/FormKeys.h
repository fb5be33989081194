#pragma once

#include <QKeyEvent>
#include <QObject>
#include <functional>
#include <vector>

class QAbstractButton;
class QShortcutEvent;
class QWidget;

namespace orvex {

inline bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// The keyboard rules of the forms. Only two dialogs do not use them: the stopwatch, where every
/// key has its own meaning, and the list of unfinished work, where Enter presses the default
/// button.
/// Enter presses no button. It moves to the next control if the form names one; only in a box of
/// several lines does it end a line. Alt with a letter is for buttons: if no button takes it, it
/// does not type the letter; a check box or an option is checked at once. A control that gets the
/// focus is scrolled into view. Over a list or a box of numbers without the focus, the wheel
/// scrolls the form instead of changing it. Menus are left alone, with Enter and all. PressGuard
/// protects lists from stale presses. (See CommandButton for the rules of buttons, HeldKeys for
/// keys held down.)
class FormKeys : public QObject {
 public:
  /// The exceptions and additions of one form.
  struct Special {
    /// The buttons that ask something: after a click the focus returns to where it was before.
    std::vector<QAbstractButton*> asking = {};
    /// The buttons that Enter presses after all, so that a user who moves from box to box with
    /// Enter can also finish with it.
    std::vector<QAbstractButton*> pressedByEnter = {};
    /// The control that Enter moves to from `control`.
    std::function<QWidget*(const QWidget* control)> next = {};
    /// The button that a key presses from within `control`, where several buttons share its letter.
    std::function<QAbstractButton*(const QWidget* control, const QKeyEvent& key)> letters = {};
    /// True for the form's shortcuts, which no box may use for itself.
    std::function<bool(const QKeyEvent& key)> shortcuts = {};
    /// Handles the form's own keys, which may include Enter. True to stop the key here.
    std::function<bool(const QWidget* control, const QKeyEvent& key)> own = {};
  };

  /// Applies the rules to `form`, which owns this object, and to all its present children. Create
  /// it after connecting the clicks of the form's buttons.
  explicit FormKeys(QWidget* form);
  FormKeys(QWidget* form, Special special);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool TakeOverride(const QWidget* control, QKeyEvent& key) const;
  bool TakeKey(QWidget* control, const QKeyEvent& key) const;
  bool TakeShortcut(QWidget* control, const QShortcutEvent& shortcut) const;
  bool TakeEnter(QWidget* control) const;

  Special special_;
};

}  // namespace orvex
