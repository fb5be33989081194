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
  /// `origin` goes to paper only.
  frmQuestionStats(QuestionStatistics statistics, const EpisodeOrigin& origin,
                   const Printing& printing, QWidget* parent = nullptr);
  ~frmQuestionStats() override;

  /// Tells the user, once the form is to be seen, what kept it from being filled.
  void Refresh();

 Q_SIGNALS:
  /// The form is left, by its button or otherwise, and is to be closed.
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
