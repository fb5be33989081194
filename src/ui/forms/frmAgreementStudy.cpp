#include "ui/forms/frmAgreementStudy.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QShortcut>
#include <QTimer>
#include <array>
#include <utility>

#include "agreement/observers.h"
#include "agreement/paper_line.h"
#include "agreement/study_tables.h"
#include "desk/screens.h"
#include "ui/forms/FiguresPage.h"
#include "ui/keys/FormKeys.h"
#include "ui/print/PrintedAgreementStudy.h"
#include "ui/print/ReportPrinter.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/StudyTable.h"
#include "ui_frmAgreementStudy.h"

namespace orvex {
namespace {

constexpr int kTickInterval = 100;  // milliseconds

}  // namespace

frmAgreementStudy::frmAgreementStudy(const Services& services,
                                     std::vector<std::filesystem::path> files, QWidget* parent)
    : QWidget(parent),
      services_(services),
      study_(std::move(files)),
      tick_(services.prompter, "Timer1"),
      ui_(std::make_unique<Ui::frmAgreementStudy>()) {
  ui_->setupUi(this);
  ShowAsWarning(ui_->lblTrouble);
  ui_->lblTrouble->hide();
  ui_->spnTolerance->setRange(0, kMostTolerance);
  ui_->spnTolerance->setValue(study_.Tolerance());
  pairs_ = new FiguresPage(*ui_->tblPairs, study_, StudyFigures::pairs);
  observers_ = new FiguresPage(*ui_->tblObservers, study_, StudyFigures::observers);
  icc_ = new FiguresPage(*ui_->tblIcc, study_, StudyFigures::icc);
  FillDimensions();
  ConnectButtons();
  ConnectKeys();
  ticks_ = new QTimer(this);
  ticks_->setObjectName(QStringLiteral("Timer1"));
  connect(ticks_, &QTimer::timeout, this, [this] { tick_.Run([this] { Tick(); }); });
  ticks_->start(kTickInterval);
  ui_->tblPairs->setFocus();
}

frmAgreementStudy::~frmAgreementStudy() = default;

void frmAgreementStudy::FillDimensions() {
  for (const ComparedDimension& compared : ComparedDimensions()) {
    ui_->cboDimension->addItem(ToQt(compared.label));
  }
  ui_->cboDimension->addItem(tr("Activities, by the second"));
}

void frmAgreementStudy::ConnectButtons() {
  const auto button = [this](QPushButton* source, auto work) {
    connect(source, &QPushButton::clicked, this, [this, work] {
      work();
      Refresh();
    });
  };
  button(ui_->cmdStop, [this] { study_.Stop(); });
  button(ui_->cmdReload, [this] { study_.Reload(); });
  button(ui_->cmdOpen, [this] { OpenPair(); });
  button(ui_->cmdPrint, [this] { Print(); });
  button(ui_->cmdCopyPaper, [this] { CopyPaper(); });
  connect(ui_->cmdClose, &QPushButton::clicked, this, &QWidget::close);
  connect(ui_->tblPairs, &StudyTable::Opened, this, &frmAgreementStudy::OpenPair);
  connect(ui_->tblPairs, &StudyTable::CurrentMoved, this, &frmAgreementStudy::ShowRemarks);
  connect(ui_->spnTolerance, &QSpinBox::valueChanged, this, [this](int seconds) {
    study_.SetTolerance(seconds);
    Refresh();
  });
  connect(ui_->cboDimension, &QComboBox::currentIndexChanged, this,
          &frmAgreementStudy::ShowCourses);
  connect(ui_->pages, &QTabWidget::currentChanged, this, [this] {
    FocusPage();
    Refresh();
  });
  new FormKeys(this, {.asking = {ui_->cmdStop, ui_->cmdReload, ui_->cmdOpen, ui_->cmdPrint,
                                 ui_->cmdCopyPaper},
                      .own = [this](const QWidget* control, const QKeyEvent& key) {
                        return TakeKey(control, key);
                      }});
}

void frmAgreementStudy::ConnectKeys() {
  const auto key = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  key(QKeySequence(Qt::Key_F5), [this] { ui_->cmdReload->click(); });
  key(QKeySequence::Print, [this] { ui_->cmdPrint->click(); });
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), [this] { ui_->cmdCopyPaper->click(); });
  key(QKeySequence(Qt::Key_Escape), [this] { close(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_Tab), [this] { TurnPage(1); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageDown), [this] { TurnPage(1); });
  key(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), [this] { TurnPage(-1); });
  key(QKeySequence(Qt::CTRL | Qt::Key_PageUp), [this] { TurnPage(-1); });
}

void frmAgreementStudy::FocusPage() {
  const std::array<QWidget*, 6> firsts = {ui_->tblPairs, ui_->tblObservers, ui_->cboDimension,
                                          ui_->tblIcc,   ui_->pooledScroll, ui_->txtLeftOut};
  FocusVisibly(firsts.at(static_cast<std::size_t>(ui_->pages->currentIndex())));
}

void frmAgreementStudy::TurnPage(int step) {
  const int count = ui_->pages->count();
  ui_->pages->setCurrentIndex((ui_->pages->currentIndex() + step + count) % count);
}

/// Enter opens the pair. Ctrl+C copies what a page shows; the tables do that themselves.
bool frmAgreementStudy::TakeKey(const QWidget* control, const QKeyEvent& key) {
  const bool isChart = control == ui_->pooledScroll || control == ui_->datesScroll;
  if (isChart && key.matches(QKeySequence::Copy)) {
    QGuiApplication::clipboard()->setText(control == ui_->datesScroll
                                              ? ui_->coursePlots->Chart().Text()
                                              : ToQt(study_.Table(StudyFigures::pooled).TextOf()));
    return true;
  }
  if (control != ui_->tblPairs || !IsEnter(key)) return false;
  OpenPair();
  return true;
}

void frmAgreementStudy::Tick() {
  bool isNew = false;
  pairs_->Change(
      [&] { observers_->Change([&] { icc_->Change([&] { isNew = study_.Tick(); }); }); });
  if (isNew) ShowFigures();
  Refresh();
}

void frmAgreementStudy::ShowFigures() {
  const AgreementStudy& result = study_.Result();
  ShowText(ui_->lblTotals, study_.TotalsText());
  ui_->txtLeftOut->setPlainText(ToQt(study_.LeftOutText()));
  ShowText(ui_->lblTrouble, study_.TroubleText());
  ui_->lblTrouble->setVisible(!result.unread.empty());
  ui_->pooledBars->Show(LinesOf(result.pooled.codes));
  ShowText(ui_->lblActivities, ActivitiesText(result.pooled));
  ui_->txtPaper->Show(ToQt(PaperLine(result)));
  ShowCourses();
}

void frmAgreementStudy::ShowCourses() {
  ui_->coursePlots->Show(CourseChart(CoursesOf(study_.Result(), Dimension())));
}

std::optional<std::size_t> frmAgreementStudy::Dimension() const {
  const auto chosen = static_cast<std::size_t>(std::max(0, ui_->cboDimension->currentIndex()));
  return chosen < ComparedDimensions().size() ? std::optional(chosen) : std::nullopt;
}

void frmAgreementStudy::ShowRemarks() {
  QStringList lines;
  const auto row = ui_->tblPairs->CurrentRow();
  const FigureGrid& pairs = study_.Table(StudyFigures::pairs);
  if (row && *row < pairs.rows.size()) {
    for (const std::string& remark : study_.PairOf(*row).agreement.AllRemarks()) {
      lines << ToQt(remark);
    }
    // The columns have no room for why a figure is not defined.
    QStringList undefined;
    for (std::size_t column = 0; column < pairs.columns.size(); ++column) {
      const std::string& text = pairs.rows[*row].cells[column].text;
      if (!text.starts_with("n/a")) continue;
      undefined << tr("%1: %2").arg(ToQt(pairs.columns[column].heading), ToQt(text));
    }
    if (!undefined.isEmpty()) lines << undefined.join(QLatin1String(", "));
  }
  ui_->txtRemarks->Show(lines.join(QLatin1Char('\n')));
}

void frmAgreementStudy::Refresh() {
  const bool reads = study_.IsReading();
  ShowText(ui_->lblProgress, study_.ProgressText());
  ui_->prgReading->setVisible(reads);
  const StudyProgress progress = study_.Reading().Progress();
  ui_->prgReading->setMaximum(static_cast<int>(progress.of));
  ui_->prgReading->setValue(static_cast<int>(progress.done));
  ui_->cmdStop->setEnabled(reads);
  const bool hasPairs = !study_.Result().pairs.empty();
  ui_->cmdOpen->setEnabled(hasPairs && ui_->pages->currentWidget() == ui_->pairsPage);
  ui_->cmdPrint->setEnabled(hasPairs);
  ui_->cmdCopyPaper->setEnabled(hasPairs);
}

void frmAgreementStudy::OpenPair() {
  const auto row = ui_->tblPairs->CurrentRow();
  if (!row) return;
  // Copies: the pair may go while its window is built.
  const StudyPair& pair = study_.PairOf(*row);
  const std::filesystem::path first = pair.first;
  const std::filesystem::path second = pair.second;
  if (services_.screens.ShowAgreement(first, second, study_.Tolerance())) {
    services_.screens.Hide(Screen::agreementStudy);
  }
}

void frmAgreementStudy::CopyPaper() const {
  QGuiApplication::clipboard()->setText(ui_->txtPaper->toPlainText());
}

void frmAgreementStudy::Print() {
  PreviewReport(PrintedAgreementStudy(study_.Result(), Dimension()),
                {services_.prompter, services_.storage}, this);
}

void frmAgreementStudy::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (event->spontaneous()) return;
  // What was opened from here may have been changed.
  if (wasHidden_) study_.Reload();
  wasHidden_ = true;
}

void frmAgreementStudy::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form closes once another is shown
  Screens& screens = services_.screens;
  screens.Show(screens.IsOpen(Screen::study) ? Screen::study : Screen::mainMenu);
  screens.Close(Screen::agreementStudy);
}

}  // namespace orvex
