#include "ui/forms/frmQuestionPlot.h"

#include <QCloseEvent>

#include "ui/print/PrintedPlot.h"
#include "ui/print/ReportActions.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmQuestionPlot.h"

namespace orvex {

frmQuestionPlot::frmQuestionPlot(const QuestionPlot& plot, const EpisodeOrigin& origin,
                                 const Printing& printing, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::frmQuestionPlot>()) {
  ui_->setupUi(this);
  ShowText(ui_->Label1, plot.title);
  ShowText(ui_->Label7, plot.totalText);
  ui_->lblNothing->setVisible(plot.questions == 0);
  ui_->plotArea->Show(plot);
  auto* actions =
      new ReportActions(this, ToQt(TextOf(plot)), std::make_unique<PrintedPlot>(plot, origin),
                        printing, ui_->plotArea, Qt::Horizontal);
  connect(ui_->Command1, &QPushButton::clicked, actions, &ReportActions::Print);
  connect(ui_->Command2, &QPushButton::clicked, this, &frmQuestionPlot::Back);
  FocusVisibly(ui_->Command2);
}

frmQuestionPlot::~frmQuestionPlot() = default;

void frmQuestionPlot::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form goes when it is closed on its signal
  Q_EMIT Back();
}

}  // namespace orvex
