#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QAbstractButton;

namespace orvex {

/// After a click on a button, returns the focus to where it was before the button took it, so that
/// a user interrupted by a dialog continues in the same place. Leaves the focus alone when the
/// click itself has moved it.
class FocusReturn : public QObject {
  Q_OBJECT

 public:
  /// Works for `button`, which owns this object. Create it after connecting the button's click, so
  /// that it runs last.
  explicit FocusReturn(QAbstractButton* button);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FocusMoved(QWidget* from, QWidget* to);
  void Return();

  QAbstractButton* button_;
  QPointer<QWidget> before_;
  bool byPress_ = false;    // the button got the focus through its key or the mouse
  bool pushedOff_ = false;  // the button lost the focus by being hidden or disabled
};

}  // namespace orvex
