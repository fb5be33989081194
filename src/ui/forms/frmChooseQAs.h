#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "questions/question_chooser.h"

namespace Ui {
class frmChooseQAs;
}

namespace orvex {

/// Divides the questions of an episode between two episodes.
class frmChooseQAs : public QDialog {
  Q_OBJECT

 public:
  explicit frmChooseQAs(const Episode& episode, QWidget* parent = nullptr);
  ~frmChooseQAs() override;

  /// The numbers of the questions for the second episode.
  std::vector<int> SecondNumbers() const { return chooser_.SecondNumbers(); }
  /// Updates the controls from the dialog's logic.
  void Refresh();

 private:
  QuestionChooser chooser_;
  std::unique_ptr<Ui::frmChooseQAs> ui_;
};

}  // namespace orvex
