#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QAbstractButton;

namespace orvex {

/// Gives the focus back to where it was before a button took it, when the click on the button is
/// done with: whoever answers a dialog in the middle of something goes on where they were.
class FocusReturn : public QObject {
  Q_OBJECT

 public:
  /// For `button`, which owns it. Made after the button's click has been connected.
  explicit FocusReturn(QAbstractButton* button);

 private:
  QPointer<QWidget> before_;
};

}  // namespace orvex
