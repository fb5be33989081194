#pragma once

#include <QPushButton>
#include <QString>

namespace orvex {

/// A button of a form that is used from the keyboard. Enter belongs to the boxes and never presses
/// it. Its key first moves the focus here, so that the box being left is checked, and clicks only
/// if that box lets the focus go. A key shared by several buttons does nothing.
///
/// The key is the letter marked in the caption. When that letter belongs to another button, the
/// form removes this button's shortcut; the caption then marks no letter, and the other key or the
/// tooltip says how to press it. A button without a tooltip of its own shows its key.
class CommandButton : public QPushButton {
  Q_OBJECT
  Q_PROPERTY(QString otherKey READ OtherKey WRITE SetOtherKey)

 public:
  explicit CommandButton(QWidget* parent = nullptr);

  /// A key that always presses the button, named by its tooltip: "F7".
  const QString& OtherKey() const { return otherKey_; }
  void SetOtherKey(const QString& key);

  /// Never less than the caption takes, whatever least size the form gives the button.
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  QString otherKey_;
  QSize least_;
};

}  // namespace orvex
