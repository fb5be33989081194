#include "ui/forms/frmMatrices.h"

#include <QCloseEvent>
#include <QFrame>
#include <QScrollArea>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>

#include "observe/live_observation.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/CheckLists.h"
#include "ui/widgets/ShowOfftask.h"
#include "ui/widgets/StatementRow.h"
#include "ui_frmMatrices.h"

namespace orvex {
namespace {

constexpr int kSecond = 1000;
/// How many pixels of the neighbouring statements stay visible around the focused one.
constexpr int kLookAhead = 48;

}  // namespace

frmMatrices::frmMatrices(const Services& services, LiveObservation& live, SurveyCaller caller,
                         QWidget* parent)
    : QWidget(parent),
      form_(
          services, live.Running().survey,
          [&live](const Survey& answers) { live.FillSurvey(answers); }, caller),
      offtask_(live),
      ui_(std::make_unique<Ui::frmMatrices>()) {
  Build();
  StartTimer();
}

frmMatrices::frmMatrices(const Services& services, LoadedSurvey loaded, QWidget* parent)
    : QWidget(parent),
      form_(services, std::move(loaded)),
      ui_(std::make_unique<Ui::frmMatrices>()) {
  Build();
}

frmMatrices::~frmMatrices() = default;

void frmMatrices::Build() {
  ui_->setupUi(this);
  ui_->Command2->setVisible(form_.OnFile());
  ui_->lblOfftask->setVisible(!form_.OnFile());
  ui_->cmdOfftaskActive->hide();
  if (!form_.OnFile()) KeepPlace(ui_->cmdOfftaskActive);
  BuildStatements();
  ConnectButtons();
  AddPageKeys();
  connect(ui_->pages, &QTabWidget::currentChanged, this, &frmMatrices::RefreshHint);
  connect(ui_->lists, &CheckLists::Checked, this, [this](int group, int item, bool checked) {
    form_.SetCheck(static_cast<std::size_t>(group), static_cast<std::size_t>(item), checked);
    Refresh();
  });
  connect(ui_->lists, &CheckLists::OtherTyped, this, [this](const QString& text) {
    form_.TypeOther(FromQt(text));
    Refresh();
  });
  connect(ui_->lists, &CheckLists::Passed, this, [this] { GoTo(0); });
  Refresh();
  ui_->lists->FocusFirst();
}

frmMatrices::Page frmMatrices::PageOf(std::size_t scale) const {
  if (scale == 0) return {ui_->instructionalPage, ui_->instructionalArea, ui_->instructionalRows};
  return {ui_->engagementPage, ui_->engagementArea, ui_->engagementRows};
}

std::size_t frmMatrices::ScaleOf(std::size_t statement) const {
  return static_cast<int>(statement) < kSurveyScales[1].first ? 0 : 1;
}

void frmMatrices::BuildStatements() {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Page page = PageOf(ScaleOf(i));
    auto* rows = static_cast<QVBoxLayout*>(page.contents->layout());
    if (rows->count() > 0) {
      auto* line = new QFrame;
      line->setFrameStyle(QFrame::HLine | QFrame::Plain);
      line->setForegroundRole(QPalette::Mid);
      rows->addWidget(line);
    }
    auto* row = new StatementRow(i);
    rows->addWidget(row);
    rows_[i] = row;
    connect(row, &StatementRow::Rated, this, [this, i](int button) {
      form_.Rate(i, button);
      Refresh();
    });
    connect(row, &StatementRow::Step, this,
            [this, i](int statements) { GoTo(static_cast<int>(i) + statements); });
    connect(row, &StatementRow::Entered, this,
            [area = page.area, row] { area->ensureWidgetVisible(row, 0, kLookAhead); });
  }
  for (std::size_t scale = 0; scale < kSurveyScales.size(); ++scale) {
    static_cast<QVBoxLayout*>(PageOf(scale).contents->layout())->addStretch(1);
  }
}

void frmMatrices::ConnectButtons() {
  const auto button = [this](QPushButton* source, auto click) {
    connect(source, &QPushButton::clicked, this, [this, click] {
      click();
      Refresh();
    });
  };
  ui_->Command1->setText(form_.OnFile() ? tr("&Save") : tr("&Return"));
  button(ui_->Command1,
         [&form = form_] { form.OnFile() ? void(form.Save()) : form.ReturnToCaller(); });
  button(ui_->Command2, [&form = form_] { form.Quit(); });
  button(ui_->cmdOfftaskActive, [this] {
    if (offtask_) offtask_->TakeEstimate();
  });
  new FormKeys(this, {.asking = {ui_->Command1, ui_->Command2, ui_->cmdOfftaskActive},
                      .own = [this](const QWidget* control, const QKeyEvent& key) {
                        auto* row = qobject_cast<StatementRow*>(control->parentWidget());
                        return row ? row->TakeKey(key) : ui_->lists->TakeKey(control, key);
                      }});
}

/// Adds the keys that turn the pages from anywhere in the form.
void frmMatrices::AddPageKeys() {
  const auto key = [this](const QKeySequence& keys, int step) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this,
            [this, step] { TurnPage(step); });
  };
  key(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
  key(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), -1);
  key(QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1);
}

void frmMatrices::StartTimer() {
  auto* timer = new QTimer(this);
  timer->setObjectName(QStringLiteral("Timer1"));
  connect(timer, &QTimer::timeout, this, [this] {
    offtask_->Tick();
    RefreshOfftask();
  });
  timer->start(kSecond);
}

/// Moves to a statement and its page. Stops at the first and the last statement.
void frmMatrices::GoTo(int statement) {
  const auto index = static_cast<std::size_t>(std::clamp(statement, 0, kStatements - 1));
  ui_->pages->setCurrentWidget(PageOf(ScaleOf(index)).page);
  rows_[index]->Focus();
}

void frmMatrices::TurnPage(int step) {
  const int count = ui_->pages->count();
  ui_->pages->setCurrentIndex((ui_->pages->currentIndex() + step + count) % count);
  const QWidget* page = ui_->pages->currentWidget();
  // A page remembers which control had the focus.
  if (QWidget* control = page->focusWidget())
    FocusVisibly(control);
  else if (page == ui_->listsPage)
    ui_->lists->FocusFirst();
  else
    GoTo(page == ui_->instructionalPage ? 0 : kSurveyScales[1].first);
}

void frmMatrices::Refresh() {
  ShowText(ui_->lblClassID, form_.ClassIdText());
  ui_->lists->Show(form_);
  for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->ShowRating(form_.Answers().ratings[i]);
  RefreshCounts();
  RefreshHint();
  RefreshOfftask();
}

/// Shows the keys of the page or, instead, where the answers were just saved or why they are not
/// safe.
void frmMatrices::RefreshHint() {
  const bool lists = ui_->pages->currentWidget() == ui_->listsPage;
  const QString keys =
      lists ? tr("Space: check.  Arrow keys: other items.  Enter: next list.  Ctrl+Tab: other "
                 "pages.")
            : tr("0 to 3, N: rate.  Delete: take back.  Up, Down, Enter: other statements.  "
                 "Ctrl+Tab: other pages.");
  const std::string trouble = form_.KeepTrouble();
  if (!trouble.empty()) return ShowText(ui_->lblKeys, NotKeptText(trouble));
  ShowText(ui_->lblKeys, form_.SavedText().empty() ? keys : ToQt(form_.SavedText()));
}

void frmMatrices::RefreshCounts() {
  for (std::size_t i = 0; i < kSurveyScales.size(); ++i) {
    const int open = form_.Answers().Open(kSurveyScales[i].first, kSurveyScales[i].count);
    const QString left = open == 0 ? tr("complete") : tr("%1 open").arg(open);
    const QString title = tr("%1: %2").arg(ToQt(kSurveyScales[i].name), left);
    const int tab = ui_->pages->indexOf(PageOf(i).page);
    if (ui_->pages->tabText(tab) != title) ui_->pages->setTabText(tab, title);
  }
  const int open = form_.Answers().Open();
  ShowText(ui_->lblOpen, open == 0 ? tr("All %1 statements are rated").arg(kStatements)
                                   : tr("%1 of %2 statements open").arg(open).arg(kStatements));
}

void frmMatrices::RefreshOfftask() {
  if (offtask_) ShowOfftask(*offtask_, ui_->lblOfftask, ui_->cmdOfftaskActive);
}

void frmMatrices::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // Show the focus from the start, since the keys work from the start.
  setAttribute(Qt::WA_KeyboardFocusChange);
}

void frmMatrices::closeEvent(QCloseEvent* event) {
  event->ignore();
  form_.Leave();
  Refresh();
}

}  // namespace orvex
