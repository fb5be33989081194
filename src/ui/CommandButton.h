#pragma once

#include <QPushButton>

namespace orvex {

/// A button of a form that is worked from the keyboard. Enter belongs to the boxes and never
/// presses it. Its mnemonic first gives it the focus, so that the box that is left is checked, and
/// clicks at once if that box let the focus go.
class CommandButton : public QPushButton {
  Q_OBJECT

 public:
  explicit CommandButton(QWidget* parent = nullptr);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace orvex
