#pragma once

#include <QWidget>
#include <memory>

#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "ui/print/ReportPrinter.h"

namespace Ui {
class frmQuestionPlot;
}

namespace orvex {

/// An episode's questions as a chart of characters.
class frmQuestionPlot : public QWidget {
  Q_OBJECT

 public:
  /// `origin` goes to paper only.
  frmQuestionPlot(const QuestionPlot& plot, const EpisodeOrigin& origin, const Printing& printing,
                  QWidget* parent = nullptr);
  ~frmQuestionPlot() override;

  /// Nothing to do: the form never changes.
  void Refresh() {}

 Q_SIGNALS:
  /// The form is left, by its button or otherwise, and is to be closed.
  void Back();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::unique_ptr<Ui::frmQuestionPlot> ui_;
};

}  // namespace orvex
