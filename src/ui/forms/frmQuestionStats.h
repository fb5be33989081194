#pragma once

#include <QWidget>
#include <memory>
#include <set>
#include <vector>

#include "reports/episode_origin.h"
#include "reports/question_statistics.h"
#include "ui/forms/TurnedPages.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmQuestionStats;
}

namespace orvex {

class ReportActions;

/// Statistics, and what is printed with them.
struct StatisticsPage {
  int episode = 0;  ///< its number; 0 for those of a whole class or of several
  QuestionStatistics statistics;
  EpisodeOrigin origin;
};

/// The statistics of an episode's questions, or of all questions of its class. The Page keys go to
/// other episodes. Of several classes there are no episodes.
class frmQuestionStats : public QWidget {
  Q_OBJECT

 public:
  /// Begins with `episode`, one of those that `episodes` has.
  frmQuestionStats(std::vector<StatisticsPage> episodes, int episode, StatisticsPage whole,
                   const Printing& printing, QWidget* parent = nullptr);
  ~frmQuestionStats() override;

  /// Once the form is visible, tells the user if the statistics are incomplete.
  void Refresh();
  /// The number of the episode that is shown, or was before the whole class.
  int Episode() const { return episodes_.IsEmpty() ? 0 : episodes_.Current().episode; }

 Q_SIGNALS:
  /// The user leaves the form, which should be closed.
  void Menu();
  void EditQuestions();
  void Plot();
  /// All reports on the class are to go into one file.
  void PrintAll();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  const StatisticsPage& Shown() const;
  void Turn(int step);
  void ShowRows();
  void ShowLegend();

  TurnedPages<StatisticsPage> episodes_;
  StatisticsPage whole_;
  Prompter& prompter_;
  std::set<int> told_;  ///< the episodes of which the user was told; 0 for the whole class
  std::unique_ptr<Ui::frmQuestionStats> ui_;
  ReportActions* actions_;
};

}  // namespace orvex
