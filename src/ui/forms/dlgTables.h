#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "tables/study_tables.h"

class QCheckBox;

namespace Ui {
class dlgTables;
}

namespace orvex {

/// Makes tables of the observations of a study: lets the user choose them, and shows how they are
/// made and what came of it. Enter makes them, Escape stops that, and then closes the dialog.
class dlgTables : public QDialog {
  Q_OBJECT

 public:
  /// Begins with `choice`, and keeps there what the user chooses for the next time.
  dlgTables(const Services& services, const StudySelection& selection, TablesChoice& choice,
            QWidget* parent = nullptr);
  ~dlgTables() override;

  void reject() override;

 private:
  void ConnectChoice();
  void ShowChoice();
  /// The choice that the controls show.
  TablesChoice Chosen() const;
  /// Those that are to be in the tables.
  const std::vector<StudyObservation>& Observations() const;
  bool IsWorking() const;
  void ChooseFolder();
  void Make();
  void Tick();
  void ShowOutcome();
  void Refresh();

  Services services_;
  const StudySelection& selection_;
  TablesChoice& choice_;
  std::unique_ptr<Ui::dlgTables> ui_;
  std::vector<std::pair<QCheckBox*, ExportKind>> exports_;
  std::vector<std::pair<QCheckBox*, TidyTable>> tables_;
  std::optional<StudyTables> making_;
  QTimer work_;
};

}  // namespace orvex
