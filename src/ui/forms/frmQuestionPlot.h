#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "ui/forms/TurnedPages.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmQuestionPlot;
}

namespace orvex {

class ReportActions;

/// The plot of an episode, and what is printed with it.
struct PlotPage {
  int episode = 0;  ///< its number
  QuestionPlot plot;
  EpisodeOrigin origin;
};

/// An episode's questions as a chart of characters. The Page keys go to other episodes.
class frmQuestionPlot : public QWidget {
  Q_OBJECT

 public:
  /// Begins with `episode`, one of those that `pages` has.
  frmQuestionPlot(std::vector<PlotPage> pages, int episode, const Printing& printing,
                  QWidget* parent = nullptr);
  ~frmQuestionPlot() override;

  void Refresh();

 Q_SIGNALS:
  /// The form is left, by its button or otherwise, and is to be closed.
  void Back();
  /// All reports on the class are to go into one file.
  void PrintAll();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::unique_ptr<Ui::frmQuestionPlot> ui_;
  TurnedPages<PlotPage> pages_;
  ReportActions* actions_;
};

}  // namespace orvex
