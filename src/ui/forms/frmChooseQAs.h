#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "questions/question_chooser.h"

namespace Ui {
class frmChooseQAs;
}

namespace orvex {

/// Divides the questions of an episode between two.
class frmChooseQAs : public QDialog {
  Q_OBJECT

 public:
  explicit frmChooseQAs(const Episode& episode, QWidget* parent = nullptr);
  ~frmChooseQAs() override;

  /// The numbers of the questions for the second episode.
  std::vector<int> SecondNumbers() const { return chooser_.SecondNumbers(); }
  /// Copies what the dialog's logic says is shown into the controls.
  void Refresh();

 private:
  QuestionChooser chooser_;
  std::unique_ptr<Ui::frmChooseQAs> ui_;
};

}  // namespace orvex
