#pragma once

#include <QDialog>
#include <memory>

#include "observe/stopwatch.h"

class QTimer;
namespace Ui {
class dlgTimer;
}

namespace orvex {

class Clock;

/// The stopwatch. It starts from zero each time it is opened.
class dlgTimer : public QDialog {
  Q_OBJECT

 public:
  explicit dlgTimer(const Clock& clock, QWidget* parent = nullptr);
  ~dlgTimer() override;

  /// Updates the controls from the stopwatch.
  void Refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Start();

  Stopwatch stopwatch_;
  std::unique_ptr<Ui::dlgTimer> ui_;
  QTimer* timer1_;
};

}  // namespace orvex
