#include "ui/forms/frmQuestionStats.h"

#include <QCloseEvent>
#include <QTimer>
#include <utility>

#include "desk/prompter.h"
#include "ui/print/PrintedStatistics.h"
#include "ui/print/ReportActions.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmQuestionStats.h"

namespace orvex {

frmQuestionStats::frmQuestionStats(QuestionStatistics statistics, const EpisodeOrigin& origin,
                                   const Printing& printing, QWidget* parent)
    : QWidget(parent),
      statistics_(std::move(statistics)),
      prompter_(printing.prompter),
      ui_(std::make_unique<Ui::frmQuestionStats>()) {
  ui_->setupUi(this);
  Fill();
  auto* actions = new ReportActions(this, ToQt(TextOf(statistics_)),
                                    std::make_unique<PrintedStatistics>(statistics_, origin),
                                    printing, ui_->scrollArea, Qt::Vertical);
  connect(ui_->Command1, &QPushButton::clicked, this, &frmQuestionStats::Menu);
  connect(ui_->Command2, &QPushButton::clicked, this, &frmQuestionStats::EditQuestions);
  connect(ui_->Command6, &QPushButton::clicked, this, &frmQuestionStats::Plot);
  connect(ui_->Command3, &QPushButton::clicked, actions, &ReportActions::Print);
  FocusVisibly(ui_->Command1);
}

frmQuestionStats::~frmQuestionStats() = default;

void frmQuestionStats::Fill() {
  ShowText(ui_->Label14, statistics_.title);
  ShowRows();
  ShowLegend();
  ShowText(ui_->Label13, statistics_.pace);
  ShowText(ui_->Label15, statistics_.offtask);
  ui_->lblNothing->setVisible(statistics_.counts.Total == 0);
}

void frmQuestionStats::ShowRows() {
  struct Controls {
    QLabel* heading;
    QLabel* count;
    BarRow* bar;
  };
  const std::array<Controls, kStatisticsLines> rows = {{
      {ui_->lblTotal, ui_->Label1_0, nullptr},
      {ui_->lblNormal, nullptr, ui_->Normal},
      {ui_->Label31, nullptr, ui_->Source},
      {ui_->lblAuthTQ, ui_->Label1_6, ui_->AuthTQ},
      {ui_->lblAuthSQ, ui_->Label1_7, ui_->AuthSQ},
      {ui_->lblHLevQ, ui_->Label1_8, ui_->HLevQ},
      {ui_->lblNoRespT, ui_->Label1_11, ui_->NoRespT},
      {ui_->Label19, nullptr, ui_->Uptake1},
      {ui_->Label6, nullptr, ui_->ELAB},
      {ui_->Label9, nullptr, ui_->TResponse1},
      {ui_->lblPFMany, ui_->Label1_4, ui_->PFMany},
  }};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const StatisticsRow& row = statistics_.rows[i];
    ShowText(rows[i].heading, row.heading);
    if (rows[i].count) ShowText(rows[i].count, row.count);
    if (rows[i].bar) rows[i].bar->Show(row);
  }
}

void frmQuestionStats::ShowLegend() {
  const std::array<std::pair<CodingSample*, QLabel*>, kStatisticsLegend.size()> samples = {{
      {ui_->sample0, ui_->lblLegend0},
      {ui_->sample1, ui_->lblLegend1},
      {ui_->sample2, ui_->lblLegend2},
      {ui_->sample3, ui_->lblLegend3},
  }};
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const auto& [meaning, text] = kStatisticsLegend[i];
    samples[i].first->Show(meaning);
    ShowText(samples[i].second, std::string(text));
  }
}

void frmQuestionStats::Refresh() {
  if (statistics_.message.empty() || std::exchange(told_, true)) return;
  // Wait until the opening form has gone, because the message is about this one.
  QTimer::singleShot(0, this, [this] { prompter_.Tell(statistics_.message); });
}

void frmQuestionStats::closeEvent(QCloseEvent* event) {
  event->ignore();  // the owner closes the form on its signal
  Q_EMIT Menu();
}

}  // namespace orvex
