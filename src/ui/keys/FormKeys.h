#pragma once

#include <QKeyEvent>
#include <QObject>
#include <functional>
#include <vector>

class QAbstractButton;
class QWidget;

namespace orvex {

inline bool IsEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// The keyboard rules of the forms. Only two dialogs do without them: the stopwatch, where every
/// key means something of its own, and the list of unfinished work, where Enter presses the default
/// button.
/// Enter presses no button and moves on where the form says where to; only in a box of several
/// lines it ends a line. Alt and a letter are for a button: where no button takes them, they do not
/// type the letter. A control that gets the focus is scrolled into sight. Over a list that nobody
/// is in, the wheel scrolls the form and chooses nothing, and no press reaches a list that it must
/// not reach. (The rules of a button are CommandButton's, those of keys held down HeldKeys'.)
class FormKeys : public QObject {
 public:
  /// What is special to a form.
  struct Special {
    /// The buttons that ask something: the focus goes back to where it was before.
    std::vector<QAbstractButton*> asking = {};
    /// The buttons that Enter presses all the same: whoever has come there with Enter from box to
    /// box is done with it, too.
    std::vector<QAbstractButton*> pressedByEnter = {};
    /// Where Enter leads from a control.
    std::function<QWidget*(const QWidget* control)> next = {};
    /// The button that a key presses from within a control, where several have its letter.
    std::function<QAbstractButton*(const QWidget* control, const QKeyEvent& key)> letters = {};
    /// The form's shortcuts that no box may take for itself.
    std::function<bool(const QKeyEvent& key)> shortcuts = {};
    /// The keys of its own, also Enter. True when the key is done with: nobody else is to have it.
    std::function<bool(const QWidget* control, const QKeyEvent& key)> own = {};
  };

  /// For `form`, which owns it, and all that is in it by now. Made after the clicks of its buttons
  /// have been connected.
  explicit FormKeys(QWidget* form);
  FormKeys(QWidget* form, Special special);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool TakeOverride(const QWidget* control, QKeyEvent& key) const;
  bool TakeKey(QWidget* control, const QKeyEvent& key) const;
  bool TakeEnter(QWidget* control) const;

  Special special_;
};

}  // namespace orvex
