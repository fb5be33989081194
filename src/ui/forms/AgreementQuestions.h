#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "agreement/agreement_actions.h"
#include "ui/widgets/PairsModel.h"

namespace Ui {
class frmAgreement;
}

namespace orvex {

struct AgreementCell;

/// The page of the agreement's form with the paired list of questions.
class AgreementQuestions : public QObject {
  Q_OBJECT

 public:
  /// `comparison` and `actions` outlive the page.
  AgreementQuestions(Ui::frmAgreement& ui, Comparison& comparison, AgreementActions& actions,
                     QObject* parent);
  ~AgreementQuestions() override;

  /// Shows the rows anew, with the same ones current and selected.
  void Refresh();
  /// Shows only the questions of a cell of a dimension's table.
  void ShowCell(const AgreementCell& cell);
  bool ShowsCell() const { return cell_ != nullptr; }
  /// Shows all questions again.
  void LeaveCell();
  /// Opens the current question in the file of one of the observers.
  void Open(Side side);
  void FocusTable();
  /// Takes the last change of the pairs back, or makes it again, if there is one.
  void Undo();
  void Redo();

 Q_SIGNALS:
  void PairsChanged();

 private:
  void ConnectButtons();
  void ConnectFilter();
  std::optional<std::size_t> DimensionShown() const;
  /// The positions in the comparison of the current and the selected rows.
  std::optional<std::size_t> Current() const;
  std::vector<std::size_t> Selected() const;
  /// The pair to be parted: the only one selected, else the current one.
  std::optional<std::size_t> ToPart() const;
  void GoTo(std::size_t position);
  void Step(bool forward);
  void ChangeAll(void (Comparison::*change)());
  void Change(const std::function<std::optional<std::size_t>()>& change);
  void Copy() const;
  void ShowCurrent();

  Ui::frmAgreement& ui_;
  Comparison& comparison_;
  AgreementActions& do_;
  PairsModel rows_;
  std::unique_ptr<AgreementCell> cell_;
};

}  // namespace orvex
