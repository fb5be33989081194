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

frmQuestionStats::frmQuestionStats(std::vector<StatisticsPage> episodes, int episode,
                                   StatisticsPage whole, const Printing& printing, QWidget* parent)
    : QWidget(parent),
      episodes_(std::move(episodes), episode),
      whole_(std::move(whole)),
      prompter_(printing.prompter),
      ui_(std::make_unique<Ui::frmQuestionStats>()) {
  ui_->setupUi(this);
  ShowLegend();
  actions_ = new ReportActions(this, printing, ui_->scrollArea, Qt::Vertical);
  for (QWidget* ofEpisodes : std::initializer_list<QWidget*>{
           ui_->optEpisode, ui_->optClass, ui_->Command2, ui_->Command6, ui_->cmdPrintAll}) {
    ofEpisodes->setVisible(!episodes_.IsEmpty());
  }
  ui_->optEpisode->setChecked(!episodes_.IsEmpty());
  if (episodes_.Several()) actions_->TurnBy([this](int step) { Turn(step); });
  connect(ui_->optEpisode, &QRadioButton::toggled, this, &frmQuestionStats::Refresh);
  connect(ui_->Command1, &QPushButton::clicked, this, &frmQuestionStats::Menu);
  connect(ui_->Command2, &QPushButton::clicked, this, &frmQuestionStats::EditQuestions);
  connect(ui_->Command6, &QPushButton::clicked, this, &frmQuestionStats::Plot);
  connect(ui_->Command3, &QPushButton::clicked, actions_, &ReportActions::Print);
  connect(ui_->cmdPrintAll, &QPushButton::clicked, this, &frmQuestionStats::PrintAll);
  FocusVisibly(ui_->Command1);
  Refresh();
}

frmQuestionStats::~frmQuestionStats() = default;

const StatisticsPage& frmQuestionStats::Shown() const {
  return ui_->optEpisode->isChecked() ? episodes_.Current() : whole_;
}

void frmQuestionStats::Turn(int step) {
  // From the whole class the keys lead back to the episode that was shown before.
  if (!ui_->optEpisode->isChecked()) return ui_->optEpisode->setChecked(true);
  if (episodes_.Turn(step)) Refresh();
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
    const StatisticsRow& row = Shown().statistics.rows[i];
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
  const auto& [episode, statistics, origin] = Shown();
  ShowText(ui_->Label14, statistics.title);
  ShowRows();
  ShowText(ui_->Label13, statistics.pace);
  ShowText(ui_->Label15, statistics.offtask);
  ui_->lblNothing->setVisible(statistics.counts.Total == 0);
  actions_->Show(ToQt(TextOf(statistics)), std::make_unique<PrintedStatistics>(statistics, origin));
  if (statistics.message.empty() || !isVisible() || !told_.insert(episode).second) return;
  // Wait until the opening form has gone, because the message is about this one.
  QTimer::singleShot(0, this, [this, text = statistics.message] { prompter_.Tell(text); });
}

void frmQuestionStats::closeEvent(QCloseEvent* event) {
  event->ignore();  // the owner closes the form on its signal
  Q_EMIT Menu();
}

}  // namespace orvex
