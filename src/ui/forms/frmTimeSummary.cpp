#include "ui/forms/frmTimeSummary.h"

#include <QCloseEvent>
#include <QScrollBar>
#include <algorithm>
#include <array>

#include "ui/print/PrintedTimeSummary.h"
#include "ui/print/ReportActions.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmTimeSummary.h"

namespace orvex {

frmTimeSummary::frmTimeSummary(const TimeSummary& summary, const Printing& printing,
                               QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::frmTimeSummary>()) {
  ui_->setupUi(this);
  Fill(summary);
  auto* actions = new ReportActions(this, printing, ui_->scrollArea, Qt::Vertical);
  actions->Show(ToQt(TextOf(summary)), std::make_unique<PrintedTimeSummary>(summary));
  connect(ui_->Command1, &QPushButton::clicked, this, &frmTimeSummary::Menu);
  connect(ui_->Command2, &QPushButton::clicked, actions, &ReportActions::Print);
  connect(ui_->cmdPrintAll, &QPushButton::clicked, this, &frmTimeSummary::PrintAll);
  FocusVisibly(ui_->Command1);
}

frmTimeSummary::~frmTimeSummary() = default;

void frmTimeSummary::Fill(const TimeSummary& summary) {
  ShowText(ui_->Label53, summary.title);
  ShowText(ui_->Label2, summary.date);
  ShowText(ui_->Label3, summary.observer);
  const std::array<ReportTable*, 4> tables = {ui_->ListView1, ui_->ListView2, ui_->ListView3,
                                              ui_->ListView4};
  for (std::size_t i = 0; i < tables.size(); ++i) tables[i]->Show(summary.blocks[i]);
  ShowText(ui_->Label48, std::string(kNonInstructionalCaption));
  ShowText(ui_->Label50, summary.nonInstructional);
  ShowText(ui_->Label47, std::string(kInstructionalCaption));
  ShowText(ui_->Label51, summary.instructional);
  ShowText(ui_->Label1, std::string(kTotalCaption));
  ShowText(ui_->Label52, summary.total);
}

void frmTimeSummary::showEvent(QShowEvent* event) {
  ArrangeTables();
  QWidget::showEvent(event);
}

void frmTimeSummary::resizeEvent(QResizeEvent* event) {
  ArrangeTables();
  QWidget::resizeEvent(event);
}

/// Puts the tables side by side or, when there is no room, one beneath the other.
void frmTimeSummary::ArrangeTables() {
  int left = 0;
  for (const ReportTable* table : {ui_->ListView1, ui_->ListView3, ui_->ListView4}) {
    left = std::max(left, table->sizeHint().width());
  }
  const int needed = left + ui_->tablesLayout->spacing() + ui_->ListView2->sizeHint().width() +
                     ui_->scrollArea->verticalScrollBar()->sizeHint().width();
  const QMargins margins = layout()->contentsMargins();
  const bool narrow = width() - margins.left() - margins.right() < needed;
  ui_->tablesLayout->setDirection(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  // Makes the scroll area use the new size at once.
  ui_->contentsLayout->activate();
}

void frmTimeSummary::closeEvent(QCloseEvent* event) {
  event->ignore();  // the owner closes the form on its signal
  Q_EMIT Menu();
}

}  // namespace orvex
