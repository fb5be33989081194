#pragma once

#include <QObject>

class QWidget;

namespace orvex {

/// Swallows a press of the mouse on a control that it must not reach: when a box has refused to
/// give up the focus, and when leaving the box has raised a question, after which the press is
/// stale.
class PressGuard : public QObject {
  Q_OBJECT

 public:
  /// Guards `control`, which owns the guard.
  explicit PressGuard(QWidget* control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* control_;
  bool stale_ = false;
};

}  // namespace orvex
