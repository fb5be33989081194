#pragma once

#include <QDialog>
#include <memory>

#include "editor/divide_time.h"

namespace Ui {
class dlgDivideTime;
}

namespace orvex {

/// Divides the time of a segment between two.
class dlgDivideTime : public QDialog {
  Q_OBJECT

 public:
  explicit dlgDivideTime(int totalSeconds, QWidget* parent = nullptr);
  ~dlgDivideTime() override;

  int SecondSeconds() const { return divide_.SecondSeconds(); }
  /// Copies what the dialog's logic says is shown into the controls.
  void Refresh();

 private:
  DivideTime divide_;
  std::unique_ptr<Ui::dlgDivideTime> ui_;
};

}  // namespace orvex
