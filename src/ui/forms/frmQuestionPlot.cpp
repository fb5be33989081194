#include "ui/forms/frmQuestionPlot.h"

#include <QCloseEvent>
#include <utility>

#include "ui/print/PrintedPlot.h"
#include "ui/print/ReportActions.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmQuestionPlot.h"

namespace orvex {

frmQuestionPlot::frmQuestionPlot(std::vector<PlotPage> pages, int episode, const Printing& printing,
                                 QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::frmQuestionPlot>()),
      pages_(std::move(pages), episode) {
  ui_->setupUi(this);
  actions_ = new ReportActions(this, printing, ui_->plotArea, Qt::Horizontal);
  if (pages_.Several()) {
    actions_->TurnBy([this](int step) {
      if (pages_.Turn(step)) Refresh();
    });
  }
  connect(ui_->Command1, &QPushButton::clicked, actions_, &ReportActions::Print);
  connect(ui_->Command2, &QPushButton::clicked, this, &frmQuestionPlot::Back);
  connect(ui_->cmdPrintAll, &QPushButton::clicked, this, &frmQuestionPlot::PrintAll);
  FocusVisibly(ui_->Command2);
  Refresh();
}

frmQuestionPlot::~frmQuestionPlot() = default;

void frmQuestionPlot::Refresh() {
  const auto& [episode, plot, origin] = pages_.Current();
  ShowText(ui_->Label1, plot.title);
  ShowText(ui_->Label7, plot.totalText);
  ui_->lblNothing->setVisible(plot.questions == 0);
  ui_->plotArea->Show(plot);
  actions_->Show(ToQt(TextOf(plot)), std::make_unique<PrintedPlot>(plot, origin));
}

void frmQuestionPlot::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form goes when it is closed on its signal
  Q_EMIT Back();
}

}  // namespace orvex
