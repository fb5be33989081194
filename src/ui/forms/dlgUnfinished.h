#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "desk/prompter.h"

namespace Ui {
class dlgUnfinished;
}

namespace orvex {

/// Offers several unfinished things in one list. The buttons apply to the current row; Enter does
/// what is most likely wanted for it.
class dlgUnfinished : public QDialog {
  Q_OBJECT

 public:
  explicit dlgUnfinished(const std::vector<UnfinishedItem>& items, QWidget* parent = nullptr);
  ~dlgUnfinished() override;

  /// The user's choice, once the dialog has been accepted.
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
