#pragma once

#include <QObject>

class QAbstractButton;

namespace orvex {

/// Swallows a press of the mouse on a button that it must not reach: when a box has refused to give
/// up the focus, and when leaving the box has raised a question, after which the press is stale.
class PressGuard : public QObject {
  Q_OBJECT

 public:
  /// Guards `button`, which owns the guard.
  explicit PressGuard(QAbstractButton* button);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAbstractButton* button_;
  bool stale_ = false;
};

}  // namespace orvex
