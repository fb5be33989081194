#pragma once

#include <QWidget>
#include <memory>

#include "agreement/agreement_actions.h"
#include "agreement/comparison.h"
#include "desk/services.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmAgreement;
}

namespace orvex {

class AgreementOverview;
class AgreementQuestions;
class AgreementTables;

/// How far two observers of a class agree, and the pairs of their questions.
class frmAgreement : public QWidget {
  Q_OBJECT

 public:
  frmAgreement(const Services& services, LoadedComparison loaded, QWidget* parent = nullptr);
  ~frmAgreement() override;

  AgreementActions& Actions() { return actions_; }

  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ConnectOptions();
  void ConnectButtons();
  void ConnectKeys();
  void ConnectPages();
  bool TakeKey(const QWidget* control, const QKeyEvent& key);
  void TurnPage(int step);
  void ShowCell();
  void LeaveCell();
  void FocusPage();
  void ShowOptions();

  const std::unique_ptr<Comparison> comparison_;
  AgreementActions actions_;
  Printing printing_;
  std::unique_ptr<Ui::frmAgreement> ui_;
  AgreementOverview* overview_ = nullptr;
  AgreementQuestions* questions_ = nullptr;
  AgreementTables* tables_ = nullptr;
};

}  // namespace orvex
