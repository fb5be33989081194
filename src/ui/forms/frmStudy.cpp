#include "ui/forms/frmStudy.h"

#include <QCloseEvent>
#include <QShortcut>
#include <QTimer>
#include <exception>
#include <utility>

#include "desk/prompter.h"
#include "desk/recent_places.h"
#include "model/program.h"
#include "study/study_layout.h"
#include "ui/forms/ObservationsPage.h"
#include "ui/forms/QuestionsPage.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmStudy.h"

namespace orvex {
namespace {

/// How many lines high the form is at least when the boxes below its tables are shown. On a lower
/// one the tables need the room; what the boxes say can be read in the rows.
constexpr int kLinesWithDetails = 28;

}  // namespace

frmStudy::frmStudy(const Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      actions_(services),
      tick_(services.prompter, "Timer1"),
      ui_(std::make_unique<Ui::frmStudy>()) {
  ui_->setupUi(this);
  ShowAsWarning(ui_->lblTrouble);
  KeepPlace(ui_->prgReading);
  observations_ = new ObservationsPage(*ui_, actions_, this);
  questions_ = new QuestionsPage(*ui_, actions_, this);
  ConnectPages();
  ConnectButtons();
  ConnectKeys();
  stored_ = ReadStudyLayout(services.programFolder);
  OpenFolder(services.program.DataPath, stored_);
  StartTimers();
  ui_->tblObservations->setFocus();
}

frmStudy::~frmStudy() {
  StoreLayout();
}

void frmStudy::StoreLayout() {
  try {
    StudyLayout layout = observations_->Layout();
    if (layout == stored_) return;
    WriteStudyLayout(services_.storage, services_.programFolder, layout);
    stored_ = std::move(layout);
  } catch (const std::exception&) {
    // Next time the table is arranged as before; nothing else is lost.
  }
}

void frmStudy::ConnectPages() {
  const auto moved = [this] {
    ui_->cmdOpen->setEnabled(ShowsQuestions() ? questions_->CanOpen() : observations_->CanOpen());
  };
  connect(observations_, &ObservationsPage::CurrentMoved, this, moved);
  connect(questions_, &QuestionsPage::CurrentMoved, this, moved);
  connect(ui_->pages, &QTabWidget::currentChanged, this, [this, moved] {
    if (ShowsQuestions()) questions_->Load();
    moved();
    FocusTable();
    Refresh();
  });
}

void frmStudy::ConnectButtons() {
  const auto button = [this](QPushButton* source, auto work) {
    connect(source, &QPushButton::clicked, this, [this, work] {
      work();
      Refresh();
    });
  };
  button(ui_->cmdFolder, [this] { ChooseFolder(); });
  button(ui_->cmdStop, [this] { study_->Stop(); });
  button(ui_->cmdReload, [this] { study_->Reload(); });
  button(ui_->cmdOpen, [this] { OpenCurrent(); });
  button(ui_->cmdTables, [this] { observations_->MakeTables(); });
  button(ui_->cmdAgreement, [this] { observations_->ShowAgreement(); });
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QWidget::close);
  new FormKeys(
      this, {.asking = {ui_->cmdStop, ui_->cmdReload, ui_->cmdFolder, ui_->cmdOpen, ui_->cmdColumns,
                        ui_->cmdActions, ui_->cmdTables, ui_->cmdAgreement},
             .own = [this](const QWidget* control, const QKeyEvent& key) {
               return TakeKey(control, key);
             }});
}

void frmStudy::ConnectKeys() {
  const auto key = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  key(QKeySequence::Find,
      [this] { FocusToReplace(ShowsQuestions() ? ui_->txtSearch : ui_->txtFilter); });
  key(QKeySequence(Qt::Key_F5), [this] { ui_->cmdReload->click(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { TurnPage(1); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageDown), [this] { TurnPage(1); });
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), [this] { TurnPage(-1); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageUp), [this] { TurnPage(-1); });
}

void frmStudy::TurnPage(int step) {
  const int count = ui_->pages->count();
  ui_->pages->setCurrentIndex((ui_->pages->currentIndex() + step + count) % count);
}

/// Enter opens the row, and leads from a filter to the rows that it has left; so does Down. Escape
/// empties the filter.
bool frmStudy::TakeKey(const QWidget* control, const QKeyEvent& key) {
  const bool isTable = control == ui_->tblObservations || control == ui_->tblQuestions;
  if (isTable && IsEnter(key)) {
    OpenCurrent();
    return true;
  }
  if (control != ui_->txtFilter && control != ui_->txtSearch) return false;
  if (IsEnter(key) || key.key() == Qt::Key_Down) {
    FocusTable();
    return true;
  }
  if (key.key() != Qt::Key_Escape) return false;
  (control == ui_->txtFilter ? ui_->txtFilter : ui_->txtSearch)->clear();
  return true;
}

void frmStudy::StartTimers() {
  ticks_ = AddTimer("Timer1", &frmStudy::Tick);
  ticks_->start(study_->TickInterval());
  looks_ = AddTimer("Timer2", &frmStudy::Look);
  looks_->setSingleShot(true);
}

QTimer* frmStudy::AddTimer(const char* name, void (frmStudy::*work)()) {
  auto* timer = new QTimer(this);
  timer->setObjectName(QLatin1String(name));
  connect(timer, &QTimer::timeout, this, [this, work] { tick_.Run([&] { (this->*work)(); }); });
  return timer;
}

void frmStudy::OpenFolder(const std::filesystem::path& folder, const StudyLayout& layout) {
  auto study = std::make_unique<Study>(folder);
  observations_->Show(*study, layout);
  questions_->Show(*study);
  study_ = std::move(study);
  Refresh();
}

void frmStudy::ChooseFolder() {
  const std::filesystem::path folder = services_.prompter.AskFolder(study_->Folder());
  if (folder.empty()) return;
  RememberRecent(services_, {RecentKind::folder, folder});
  OpenFolder(folder, observations_->Layout());
}

/// Takes over what has been read, and sees to the next look once the last one is over.
void frmStudy::Tick() {
  if (study_->HasChanges()) {
    observations_->Change([this] { questions_->Change([this] { study_->Tick(); }); });
  }
  const int interval = study_->TickInterval();
  if (ticks_->interval() != interval) ticks_->setInterval(interval);
  if (!study_->IsLooking() && !looks_->isActive()) looks_->start(study_->LookInterval());
  Refresh();
}

void frmStudy::Look() {
  study_->LookForChanges();
}

void frmStudy::OpenCurrent() {
  ShowsQuestions() ? questions_->Open() : observations_->Open();
}

void frmStudy::FocusTable() {
  (ShowsQuestions() ? ui_->tblQuestions : ui_->tblObservations)->FocusRows();
}

bool frmStudy::ShowsQuestions() const {
  return ui_->pages->currentWidget() == ui_->questionsPage;
}

void frmStudy::Refresh() {
  const bool reads = study_->IsReading();
  ShowText(ui_->lblFolder, FromQt(tr("Folder: %1").arg(ToQt(study_->Folder().string()))));
  const bool isUnderWay = reads || study_->IsStopped();
  ShowText(ui_->lblProgress, isUnderWay ? study_->ProgressText() : "");
  ui_->prgReading->setVisible(reads);
  ui_->prgReading->setMaximum(static_cast<int>(study_->Found()));
  ui_->prgReading->setValue(static_cast<int>(study_->Read()));
  ui_->cmdStop->setEnabled(reads);
  const std::string trouble = study_->Trouble();
  ShowText(ui_->lblTrouble, trouble);
  ui_->lblTrouble->setVisible(!trouble.empty());
  ui_->cmdActions->setEnabled(!ShowsQuestions());
  ui_->cmdAgreement->setEnabled(!ShowsQuestions());
  questions_->Refresh();
}

void frmStudy::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // What another form has just saved shows at once.
  if (!event->spontaneous()) study_->LookForChanges();
}

void frmStudy::hideEvent(QHideEvent* event) {
  StoreLayout();
  QWidget::hideEvent(event);
}

void frmStudy::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const bool hasRoom = height() >= kLinesWithDetails * fontMetrics().lineSpacing();
  ui_->txtProblems->setVisible(hasRoom);
  ui_->txtQuestion->setVisible(hasRoom);
}

void frmStudy::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form closes once the main menu is shown
  actions_.Close();
}

}  // namespace orvex
