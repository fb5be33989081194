#pragma once

#include <QObject>
#include <array>

namespace Ui {
class frmAgreement;
}

namespace orvex {

class Comparison;
class FigureTable;

/// The page of the agreement's form with all figures and the activities over the class's time.
class AgreementOverview : public QObject {
  Q_OBJECT

 public:
  /// `comparison` outlives the page.
  AgreementOverview(Ui::frmAgreement& ui, const Comparison& comparison, QObject* parent);

  void Refresh();
  /// Copies all figures as tables for a spreadsheet.
  void Copy() const;
  /// Sets the boxes beside or above each other, as the `width` of the form allows.
  void FitBoxes(int width);
  /// Scrolls to the activities, gives them the keyboard, and marks where the observers saw these.
  void ShowActivities(int first, int second);

 private:
  void ShowActivities();
  void ShowQuestions();
  void ShowOfftask();
  void ShowSurvey();
  void ShowTraining();

  Ui::frmAgreement& ui_;
  const Comparison& comparison_;
  FigureTable* activities_;
  FigureTable* questions_;
  FigureTable* offtask_;
  FigureTable* survey_;
  FigureTable* training_;
};

}  // namespace orvex
