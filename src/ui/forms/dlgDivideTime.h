#pragma once

#include <QDialog>
#include <memory>

#include "editor/divide_time.h"

namespace Ui {
class dlgDivideTime;
}

namespace orvex {

/// Divides the time of a segment between two segments.
class dlgDivideTime : public QDialog {
  Q_OBJECT

 public:
  explicit dlgDivideTime(int totalSeconds, QWidget* parent = nullptr);
  ~dlgDivideTime() override;

  int SecondSeconds() const { return divide_.SecondSeconds(); }
  /// Updates the controls from the dialog's logic.
  void Refresh();

 private:
  DivideTime divide_;
  std::unique_ptr<Ui::dlgDivideTime> ui_;
};

}  // namespace orvex
