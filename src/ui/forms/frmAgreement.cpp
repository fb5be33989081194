#include "ui/forms/frmAgreement.h"

#include <QCloseEvent>
#include <QShortcut>
#include <utility>

#include "agreement/agreement_text.h"
#include "agreement/observer_name.h"
#include "ui/forms/AgreementOverview.h"
#include "ui/forms/AgreementQuestions.h"
#include "ui/forms/AgreementTables.h"
#include "ui/keys/FormKeys.h"
#include "ui/keys/UndoKeys.h"
#include "ui/print/PrintedAgreement.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmAgreement.h"

namespace orvex {
namespace {

/// How many lines high the form is at least when the box below the questions is shown. On a lower
/// one the table needs the room.
constexpr int kLinesWithDetails = 26;

QString OriginText(const Offset& offset) {
  switch (offset.from) {
    case Offset::From::log:
      return frmAgreement::tr("from the session logs");
    case Offset::From::given:
      return frmAgreement::tr("as you stated");
    case Offset::From::start:
      break;
  }
  return frmAgreement::tr("not known: both begin at 0");
}

QString WhoText(const Agreement::Observer& observer) {
  return frmAgreement::tr("%1 (%2)").arg(ToQt(ShownInitials(observer.identity)),
                                         ToQt(observer.identity.ClassId()));
}

}  // namespace

frmAgreement::frmAgreement(const Services& services, LoadedComparison loaded, QWidget* parent)
    : QWidget(parent),
      comparison_(std::move(loaded.comparison)),
      actions_(services, *comparison_, std::move(loaded.keeper)),
      printing_{services.prompter, services.storage},
      ui_(std::make_unique<Ui::frmAgreement>()) {
  ui_->setupUi(this);
  ShowAsWarning(ui_->lblRemarks);
  QFont bold = ui_->lblWho->font();
  bold.setBold(true);
  ui_->lblWho->setFont(bold);
  overview_ = new AgreementOverview(*ui_, *comparison_, this);
  questions_ = new AgreementQuestions(*ui_, *comparison_, actions_, this);
  tables_ = new AgreementTables(*ui_, *comparison_, this);
  ConnectOptions();
  ConnectPages();
  ConnectButtons();
  ConnectKeys();
  Refresh();
  FocusPage();
}

frmAgreement::~frmAgreement() = default;

void frmAgreement::ConnectOptions() {
  ui_->spnOffset->setRange(-kMostOffset, kMostOffset);
  ui_->spnTolerance->setRange(0, kMostTolerance);
  const Agreement& agreement = comparison_->Result();
  ui_->cboMaster->addItems({tr("None"), WhoText(agreement.first), WhoText(agreement.second)});
  connect(ui_->spnOffset, &QSpinBox::valueChanged, this, [this](int seconds) {
    comparison_->SetOffset(seconds);
    Refresh();
  });
  connect(ui_->spnTolerance, &QSpinBox::valueChanged, this, [this](int seconds) {
    comparison_->SetTolerance(seconds);
    Refresh();
  });
  connect(ui_->cboMaster, &QComboBox::currentIndexChanged, this, [this](int index) {
    comparison_->SetMaster(static_cast<Master>(index));
    Refresh();
  });
}

void frmAgreement::ConnectPages() {
  connect(ui_->pages, &QTabWidget::currentChanged, this, &frmAgreement::FocusPage);
  connect(questions_, &AgreementQuestions::PairsChanged, this, &frmAgreement::Refresh);
  connect(tables_, &AgreementTables::CellChosen, this, &frmAgreement::ShowCell);
}

void frmAgreement::ConnectButtons() {
  const auto button = [this](QPushButton* source, auto work) {
    connect(source, &QPushButton::clicked, this, [this, work] {
      work();
      Refresh();
    });
  };
  button(ui_->cmdLogs, [this] { comparison_->SetOffset(std::nullopt); });
  button(ui_->cmdSavePairs, [this] { actions_.SavePairs(); });
  button(ui_->cmdLoadPairs, [this] { actions_.LoadPairs(); });
  button(ui_->cmdPrint, [this] { PreviewReport(PrintedAgreement(*comparison_), printing_, this); });
  connect(ui_->cmdBack, &QPushButton::clicked, this, &frmAgreement::LeaveCell);
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QWidget::close);
  new FormKeys(
      this, {.asking = {ui_->cmdLogs, ui_->cmdSavePairs, ui_->cmdLoadPairs, ui_->cmdCopyLine,
                        ui_->cmdCopyFigures, ui_->cmdPrevious, ui_->cmdNext, ui_->cmdPair,
                        ui_->cmdUnpair, ui_->cmdUndo, ui_->cmdWords, ui_->cmdPrint, ui_->cmdFirst,
                        ui_->cmdSecond, ui_->cmdCopyTable},
             .own = [this](const QWidget* control, const QKeyEvent& key) {
               return TakeKey(control, key);
             }});
}

void frmAgreement::ConnectKeys() {
  const auto key = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  for (const QKeySequence& keys : KeysOf(Way::undo)) key(keys, [this] { questions_->Undo(); });
  for (const QKeySequence& keys : KeysOf(Way::redo)) key(keys, [this] { questions_->Redo(); });
  key(QKeySequence::Print, [this] { ui_->cmdPrint->click(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { TurnPage(1); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageDown), [this] { TurnPage(1); });
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), [this] { TurnPage(-1); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageUp), [this] { TurnPage(-1); });
  key(QKeySequence(Qt::Key_Escape),
      [this] { questions_->ShowsCell() ? LeaveCell() : static_cast<void>(close()); });
}

void frmAgreement::TurnPage(int step) {
  const int count = ui_->pages->count();
  ui_->pages->setCurrentIndex((ui_->pages->currentIndex() + step + count) % count);
}

/// Enter opens the question, or shows the questions of a cell; Ctrl+C copies the figures.
bool frmAgreement::TakeKey(const QWidget* control, const QKeyEvent& key) {
  if (control == ui_->tblPairs && IsEnter(key)) {
    questions_->Open(key.modifiers().testFlag(Qt::ShiftModifier) ? Side::second : Side::first);
    return true;
  }
  if (control == ui_->tblCodes && IsEnter(key)) {
    ShowCell();
    return true;
  }
  const bool isFigures = control == ui_->overviewArea || control == ui_->stripActivities;
  if (isFigures && key.matches(QKeySequence::Copy)) {
    overview_->Copy();
    return true;
  }
  return false;
}

/// Shows the questions of the current cell, or where the activities of the cell differ.
void frmAgreement::ShowCell() {
  const auto cell = tables_->Current();
  if (!cell) return;
  if (!cell->dimension) {
    ui_->pages->setCurrentWidget(ui_->overviewPage);
    return overview_->ShowActivities(static_cast<int>(cell->first), static_cast<int>(cell->second));
  }
  questions_->ShowCell(*cell);
  ui_->pages->setCurrentWidget(ui_->questionsPage);
}

void frmAgreement::LeaveCell() {
  questions_->LeaveCell();
  ui_->pages->setCurrentWidget(ui_->tablesPage);
}

void frmAgreement::FocusPage() {
  if (ui_->pages->currentWidget() == ui_->questionsPage) {
    questions_->FocusTable();
  } else if (ui_->pages->currentWidget() == ui_->tablesPage) {
    FocusVisibly(ui_->tblCodes);
  } else {
    FocusVisibly(ui_->overviewArea);
  }
}

void frmAgreement::ShowOptions() {
  const Agreement& agreement = comparison_->Result();
  ShowText(ui_->lblWho, tr("%1 and %2, %3")
                            .arg(WhoText(agreement.first), WhoText(agreement.second),
                                 ToQt(DatesText(agreement))));
  const QSignalBlocker offsetStays(ui_->spnOffset);
  const QSignalBlocker toleranceStays(ui_->spnTolerance);
  ui_->spnOffset->setValue(agreement.offset.seconds);
  ui_->spnTolerance->setValue(comparison_->Options().tolerance);
  ShowText(ui_->lblOffsetFrom, OriginText(agreement.offset));
  ui_->cmdLogs->setEnabled(comparison_->Options().offset.has_value());
  QStringList remarks;
  if (const std::string trouble = actions_.KeepTrouble(); !trouble.empty()) {
    remarks << ToQt(NotKeptText(trouble));
  }
  for (const std::string& remark : agreement.AllRemarks()) remarks << ToQt(remark);
  ShowText(ui_->lblRemarks, remarks.join(QLatin1Char('\n')));
  ui_->lblRemarks->setVisible(!remarks.isEmpty());
}

void frmAgreement::Refresh() {
  ShowOptions();
  overview_->Refresh();
  questions_->Refresh();
  tables_->Refresh();
}

void frmAgreement::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) actions_.ComeBack();
}

void frmAgreement::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ui_->txtPair->setVisible(height() >= kLinesWithDetails * fontMetrics().lineSpacing());
  overview_->FitBoxes(width());
}

void frmAgreement::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form closes once another one is shown
  actions_.Leave();
}

}  // namespace orvex
