#pragma once

#include <QObject>

class QWidget;

namespace orvex {

/// Blocks mouse presses that must not reach a control: after another box has refused to give up the
/// focus, and after leaving a box has raised a question, which makes the press stale.
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
