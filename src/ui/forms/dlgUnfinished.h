#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "desk/prompter.h"

namespace Ui {
class dlgUnfinished;
}

namespace orvex {

/// Offers several things that were not finished in one list. The buttons say what can be done with
/// the row that the keyboard is on; Enter does what is likeliest with it.
class dlgUnfinished : public QDialog {
  Q_OBJECT

 public:
  explicit dlgUnfinished(const std::vector<UnfinishedItem>& items, QWidget* parent = nullptr);
  ~dlgUnfinished() override;

  /// What was chosen, once the dialog was accepted.
  const UnfinishedChoice& Choice() const { return choice_; }

 private:
  void AddRows();
  void FitColumns();
  void ConnectButton(QPushButton* button, Answer answer);
  void ShowButtons();
  const UnfinishedItem& Current() const;

  std::vector<UnfinishedItem> items_;
  UnfinishedChoice choice_;
  std::unique_ptr<Ui::dlgUnfinished> ui_;
};

}  // namespace orvex
