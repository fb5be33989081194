#pragma once

#include <QWidget>
#include <array>
#include <memory>
#include <optional>

#include "desk/services.h"
#include "observe/offtask_indicator.h"
#include "survey/survey_form.h"

class QScrollArea;
namespace Ui {
class frmMatrices;
}

namespace orvex {

class LiveObservation;
class StatementRow;

/// The survey of a lesson, filled in during the class or on a survey file.
class frmMatrices : public QWidget {
  Q_OBJECT

 public:
  frmMatrices(const Services& services, LiveObservation& live, SurveyCaller caller,
              QWidget* parent = nullptr);
  frmMatrices(const Services& services, LoadedSurvey loaded, QWidget* parent = nullptr);
  ~frmMatrices() override;

  /// Sets the form to show again when the user leaves this one during the class.
  void SetCaller(SurveyCaller caller) { form_.SetCaller(caller); }
  SurveyForm& Form() { return form_; }
  /// Updates the controls from the survey.
  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  /// A page of statements, its scroll area, and the contents of that area.
  struct Page {
    QWidget* page;
    QScrollArea* area;
    QWidget* contents;
  };

  void Build();
  void BuildStatements();
  void ConnectButtons();
  void AddPageKeys();
  void StartTimer();
  Page PageOf(std::size_t scale) const;
  std::size_t ScaleOf(std::size_t statement) const;
  void GoTo(int statement);
  void TurnPage(int step);
  void RefreshHint();
  void RefreshCounts();
  void RefreshOfftask();

  SurveyForm form_;
  std::optional<OfftaskIndicator> offtask_;  ///< only during a class
  std::unique_ptr<Ui::frmMatrices> ui_;
  std::array<StatementRow*, kStatements> rows_{};
};

}  // namespace orvex
