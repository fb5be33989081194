#pragma once

#include <QDialog>
#include <memory>

#include "desk/prompter.h"

namespace Ui {
class frmAdjust;
}

namespace orvex {

/// Corrects how many seconds ago the running segment began.
class frmAdjust : public QDialog {
  Q_OBJECT

 public:
  explicit frmAdjust(const SecondsPrompt& prompt, QWidget* parent = nullptr);
  ~frmAdjust() override;

  int Seconds() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::unique_ptr<Ui::frmAdjust> ui_;
};

}  // namespace orvex
