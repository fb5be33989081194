#pragma once

#include <QPushButton>
#include <QString>

namespace orvex {

/// A button of a form that is worked from the keyboard. Enter belongs to the boxes and never
/// presses it. Its key first gives it the focus, so that the box that is left is checked, and
/// clicks at once if that box let the focus go. A key that several buttons had would do nothing.
///
/// The key is the letter marked in the caption. Where that letter belongs to another button of the
/// form, the form takes the shortcut away; the letter is then not marked, and the button's other
/// key or its tooltip says how to press it.
class CommandButton : public QPushButton {
  Q_OBJECT
  Q_PROPERTY(QString otherKey READ OtherKey WRITE SetOtherKey)

 public:
  explicit CommandButton(QWidget* parent = nullptr);

  /// A key that presses the button whatever letter it has, and that its tooltip names: "F7".
  const QString& OtherKey() const { return otherKey_; }
  void SetOtherKey(const QString& key);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  QString otherKey_;
};

}  // namespace orvex
