#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QWidget;

namespace orvex {

/// Tells when the boxes of a form are entered and left. The window going to the back, a menu or a
/// question leave no box; a box that refuses to be left takes the focus back and counts as never
/// left.
class BoxFocus : public QObject {
  Q_OBJECT

 public:
  using Entered = std::function<void(QWidget*)>;
  /// False when the box must keep the focus; whoever says so has given it back.
  using Left = std::function<bool(QWidget*)>;

  BoxFocus(QWidget* form, std::vector<QWidget*> boxes, Entered entered, Left left);

  /// Checks the box that has the focus as if it were left. False when it refuses.
  bool CheckCurrent();

 private:
  void FocusMoved(QWidget* to);
  bool Leave();

  QWidget* form_;
  std::vector<QWidget*> boxes_;
  Entered entered_;
  Left left_;
  QWidget* current_ = nullptr;
  bool leaving_ = false;
};

}  // namespace orvex
