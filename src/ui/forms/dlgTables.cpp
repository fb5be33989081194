#include "ui/forms/dlgTables.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <algorithm>
#include <array>
#include <optional>

#include "desk/prompter.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/FitToScreen.h"
#include "ui_dlgTables.h"

namespace orvex {
namespace {

constexpr qint64 kBetweenRefreshes = 30;  // milliseconds

/// What the rows of the list of codebooks stand for.
constexpr std::array<std::optional<CodebookKind>, 4> kCodebooks = {
    std::nullopt, CodebookKind::csv, CodebookKind::r, CodebookKind::spss};

/// "Se&lected (3)".
void ShowCount(QAbstractButton* button, std::size_t count) {
  button->setText(button->text() + QStringLiteral(" (%1)").arg(count));
}

}  // namespace

dlgTables::dlgTables(const Services& services, const StudySelection& selection,
                     TablesChoice& choice, QWidget* parent)
    : QDialog(parent),
      services_(services),
      selection_(selection),
      choice_(choice),
      ui_(std::make_unique<Ui::dlgTables>()) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_QuitOnClose, false);
  exports_ = {{ui_->chkEpsData, ExportKind::epsData}, {ui_->chkSurData, ExportKind::surData}};
  tables_ = {{ui_->chkQuestions, TidyTable::questions},
             {ui_->chkSegments, TidyTable::segments},
             {ui_->chkEpisodes, TidyTable::episodes},
             {ui_->chkObservations, TidyTable::observations},
             {ui_->chkSurvey, TidyTable::survey}};
  ShowChoice();
  ConnectChoice();
  connect(ui_->cmdChoose, &QPushButton::clicked, this, &dlgTables::ChooseFolder);
  connect(ui_->cmdMake, &QPushButton::clicked, this, &dlgTables::Make);
  connect(ui_->cmdStop, &QPushButton::clicked, this, &dlgTables::reject);
  connect(ui_->cmdClose, &QPushButton::clicked, this, &dlgTables::reject);
  // A few files each time the window has nothing else to do.
  work_.setSingleShot(true);
  work_.setInterval(0);
  connect(&work_, &QTimer::timeout, this, &dlgTables::Tick);
  new FormKeys(this, {.pressedByEnter = {ui_->cmdChoose, ui_->cmdMake, ui_->cmdStop, ui_->cmdClose},
                      .own = [this](const QWidget* control, const QKeyEvent& key) {
                        const bool hasOwnEnter = qobject_cast<const QPushButton*>(control) ||
                                                 qobject_cast<const QPlainTextEdit*>(control);
                        if (!IsEnter(key) || hasOwnEnter) return false;
                        ui_->cmdMake->click();
                        return true;
                      }});
  FocusVisibly(ui_->chkEpsData);
  Refresh();
  FitToScreen(*this);
}

dlgTables::~dlgTables() = default;

void dlgTables::ShowChoice() {
  for (const auto& [box, kind] : exports_) box->setChecked(choice_.exports.contains(kind));
  for (const auto& [box, table] : tables_) box->setChecked(choice_.tables.contains(table));
  const auto* const codebook = std::ranges::find(kCodebooks, choice_.codebook);
  ui_->cboCodebook->setCurrentIndex(static_cast<int>(codebook - kCodebooks.begin()));
  (choice_.database ? ui_->optDatabase : ui_->optFiles)->setChecked(true);
  ShowText(ui_->txtFolder,
           choice_.folder.empty() ? selection_.folder.string() : choice_.folder.string());
  ShowCount(ui_->optSelected, selection_.selected.size());
  ShowCount(ui_->optShown, selection_.shown.size());
  // One row is selected wherever the cursor is; who wants some of them selects several.
  const bool ofSelected = selection_.selected.size() > 1;
  (ofSelected ? ui_->optSelected : ui_->optShown)->setChecked(true);
}

void dlgTables::ConnectChoice() {
  for (const auto& [box, kind] : exports_) {
    connect(box, &QCheckBox::toggled, this, &dlgTables::Refresh);
  }
  for (const auto& [box, table] : tables_) {
    connect(box, &QCheckBox::toggled, this, &dlgTables::Refresh);
  }
  for (const QRadioButton* option : {ui_->optSelected, ui_->optDatabase}) {
    connect(option, &QRadioButton::toggled, this, &dlgTables::Refresh);
  }
  connect(ui_->txtFolder, &QLineEdit::textEdited, this, &dlgTables::Refresh);
}

TablesChoice dlgTables::Chosen() const {
  TablesChoice choice;
  for (const auto& [box, kind] : exports_) {
    if (box->isChecked()) choice.exports.insert(kind);
  }
  for (const auto& [box, table] : tables_) {
    if (box->isChecked()) choice.tables.insert(table);
  }
  choice.codebook = kCodebooks.at(static_cast<std::size_t>(ui_->cboCodebook->currentIndex()));
  choice.database = ui_->optDatabase->isChecked();
  choice.folder = FromQt(ui_->txtFolder->text());
  return choice;
}

const std::vector<StudyObservation>& dlgTables::Observations() const {
  return ui_->optSelected->isChecked() ? selection_.selected : selection_.shown;
}

void dlgTables::ChooseFolder() {
  const auto folder = services_.prompter.AskFolder(FromQt(ui_->txtFolder->text()));
  if (!folder.empty()) ShowText(ui_->txtFolder, folder.string());
  Refresh();
}

bool dlgTables::IsWorking() const {
  return making_ && making_->Working();
}

void dlgTables::Make() {
  choice_ = Chosen();
  making_.emplace(services_, Observations(), choice_);
  Refresh();
  FocusVisibly(ui_->cmdStop);
  work_.start();
}

void dlgTables::Tick() {
  QElapsedTimer sinceShown;
  sinceShown.start();
  while (IsWorking() && sinceShown.elapsed() < kBetweenRefreshes) making_->Work();
  if (!IsWorking()) return ShowOutcome();
  Refresh();
  work_.start();  // only now: while the user is asked, nothing goes on
}

void dlgTables::reject() {
  if (!IsWorking()) return QDialog::reject();
  work_.stop();
  making_->Stop();
  ShowOutcome();
}

void dlgTables::ShowOutcome() {
  ui_->txtResult->SetNotes(ToQt(making_->Outcome()));
  Refresh();
  FocusVisibly(ui_->cmdClose);
}

void dlgTables::Refresh() {
  const bool working = IsWorking();
  const TablesChoice chosen = Chosen();
  ui_->choice->setEnabled(!working);
  ui_->optSelected->setEnabled(!selection_.selected.empty());
  for (const auto& [box, table] : tables_) box->setEnabled(!chosen.database);
  ui_->cboCodebook->setEnabled(!chosen.database);
  ui_->cmdMake->setEnabled(!working && !chosen.IsEmpty() && !chosen.folder.empty() &&
                           !Observations().empty());
  ui_->cmdClose->setEnabled(!working);
  ui_->cmdStop->setEnabled(working);
  if (!making_) return;
  ui_->prgFiles->setMaximum(std::max(1, static_cast<int>(making_->Count())));
  ui_->prgFiles->setValue(static_cast<int>(making_->Done()));
  ShowText(ui_->lblProgress, making_->ProgressText());
}

}  // namespace orvex
