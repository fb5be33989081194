#pragma once

#include <QWidget>
#include <memory>

#include "reports/episode_origin.h"
#include "reports/question_statistics.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmQuestionStats;
}

namespace orvex {

/// The statistics of an episode's questions.
class frmQuestionStats : public QWidget {
  Q_OBJECT

 public:
  /// `origin` is only printed.
  frmQuestionStats(QuestionStatistics statistics, const EpisodeOrigin& origin,
                   const Printing& printing, QWidget* parent = nullptr);
  ~frmQuestionStats() override;

  /// Once the form is visible, tells the user if the statistics are incomplete.
  void Refresh();

 Q_SIGNALS:
  /// The user leaves the form, which should be closed.
  void Menu();
  void EditQuestions();
  void Plot();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Fill();
  void ShowRows();
  void ShowLegend();

  QuestionStatistics statistics_;
  Prompter& prompter_;
  bool told_ = false;
  std::unique_ptr<Ui::frmQuestionStats> ui_;
};

}  // namespace orvex
