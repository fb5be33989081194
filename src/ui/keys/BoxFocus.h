#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QWidget;

namespace orvex {

/// Reports when the boxes of a form are entered and left. A box is not left when its window loses
/// focus, a menu opens or a question is asked. A box that refuses to be left takes the focus back
/// and counts as never left.
class BoxFocus : public QObject {
  Q_OBJECT

 public:
  using Entered = std::function<void(QWidget*)>;
  /// Leaves the box. Returns false when it must keep the focus, after giving it back.
  using TryLeave = std::function<bool(QWidget*)>;

  BoxFocus(QWidget* form, std::vector<QWidget*> boxes, Entered entered, TryLeave tryLeave);

  /// Checks the focused box as if the user left it. False when it refuses.
  bool CheckCurrent();

 private:
  void FocusMoved(QWidget* to);
  bool Leave();

  QWidget* form_;
  std::vector<QWidget*> boxes_;
  Entered entered_;
  TryLeave tryLeave_;
  QWidget* current_ = nullptr;
  bool leaving_ = false;
};

}  // namespace orvex
