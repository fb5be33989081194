#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QAbstractButton;

namespace orvex {

/// Gives the focus back to where it was before a button took it, when the click on the button is
/// done with: whoever answers a dialog in the middle of something goes on where they were. What the
/// click itself has given the focus to keeps it.
class FocusReturn : public QObject {
  Q_OBJECT

 public:
  /// For `button`, which owns it. Made after the button's click has been connected.
  explicit FocusReturn(QAbstractButton* button);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FocusMoved(QWidget* from, QWidget* to);
  void Return();

  QAbstractButton* button_;
  QPointer<QWidget> before_;
  bool byPress_ = false;    // the focus came with the press, by the button's key or the mouse
  bool pushedOff_ = false;  // it went because the button was hidden or disabled
};

}  // namespace orvex
