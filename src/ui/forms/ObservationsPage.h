#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "study/study.h"
#include "study/study_actions.h"
#include "study/study_layout.h"
#include "ui/widgets/ObservationsModel.h"

namespace Ui {
class frmStudy;
}

namespace orvex {

class ObservationActions;
class StudyColumns;

/// The page of the study's form with the table of observations.
class ObservationsPage : public QObject {
  Q_OBJECT

 public:
  ObservationsPage(Ui::frmStudy& ui, StudyActions& actions, QObject* parent);

  /// Shows `study`, which outlives the page or the next call, as `layout` says.
  void Show(Study& study, const StudyLayout& layout);
  /// The present layout.
  StudyLayout Layout() const;
  /// Runs `change`, which may change the rows of the study, and shows the same place of the table
  /// again.
  void Change(const std::function<void()>& change);

  bool CanOpen() const;
  void Open() { Do(StudyAction::open); }
  /// Lets the user make tables of what is shown or selected.
  void MakeTables();
  /// Shows how far the observers of what is shown or selected agree.
  void ShowAgreement();

 Q_SIGNALS:
  /// Another observation is current, or it has changed.
  void CurrentMoved();

 private:
  void ConnectFilter();
  void AddMore();
  void Filter();
  void Do(StudyAction action);
  void ShowInFolder();
  void Copy();
  std::optional<StudyRow> Current() const;
  void ShowCurrent();

  Ui::frmStudy& ui_;
  StudyActions& do_;
  Study* study_ = nullptr;
  ObservationsModel rows_;
  StudyColumns* columns_;
  ObservationActions* actions_;
  StudyLayout layout_;
};

}  // namespace orvex
