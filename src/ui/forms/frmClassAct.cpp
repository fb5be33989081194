#include "ui/forms/frmClassAct.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTimer>
#include <array>
#include <initializer_list>
#include <utility>
#include <vector>

#include "store/preferences.h"
#include "ui/forms/LiveCodingPanel.h"
#include "ui/keys/BoxFocus.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/Announce.h"
#include "ui/widgets/ShowClocks.h"
#include "ui/widgets/ShowOfftask.h"
#include "ui_frmClassAct.h"

namespace orvex {

frmClassAct::frmClassAct(const Services& services, const RunningClass* takenUp)
    : live_(takenUp ? LiveObservation(services, *takenUp) : LiveObservation(services)),
      clocks_(services, live_),
      timer3_(services.prompter, "timer3"),
      offtaskTick_(services.prompter, "the offtask timer (frmClassAct)"),
      offtaskSound_(ReadPreferences(services.programFolder).offtaskSound),
      ui_(std::make_unique<Ui::frmClassAct>()) {
  ui_->setupUi(this);
  setWindowTitle(ToQt(live_.Caption()));
  coding_ = new LiveCodingPanel(
      *ui_, live_, [this] { Refresh(); }, this);
  ConnectTexts();
  WatchFocus();
  ConnectButtons();
  StartTimers();
  KeepPlaces();
  ShowAsWarning(ui_->lblLogTrouble);
  if (takenUp) clocks_.Tick();
  Refresh();
}

frmClassAct::~frmClassAct() = default;

std::array<std::pair<HeaderBox, QLineEdit*>, 5> frmClassAct::Boxes() const {
  return {{{HeaderBox::initials, ui_->txtInitials},
           {HeaderBox::schoolNum, ui_->txtSchoolNum},
           {HeaderBox::classNum, ui_->txtClassNum},
           {HeaderBox::observNum, ui_->txtObservNum},
           {HeaderBox::numStudents, ui_->txtNumStudents}}};
}

QLineEdit* frmClassAct::BoxOf(HeaderBox box) const {
  for (const auto& [name, edit] : Boxes()) {
    if (name == box) return edit;
  }
  return ui_->txtInitials;
}

void frmClassAct::ConnectTexts() {
  for (const auto& [box, edit] : Boxes()) {
    connect(edit, &QLineEdit::textEdited, this, [this, box = box](const QString& text) {
      live_.TypeHeader(box, FromQt(text));
      Refresh();
    });
  }
  connect(ui_->txtEpisodeName, &QLineEdit::textEdited, this, [this](const QString& text) {
    live_.TypeDescription(FromQt(text));
    live_.KeyInDescription();
    Refresh();
  });
}

void frmClassAct::WatchFocus() {
  std::vector<QWidget*> boxes = {ui_->txtEpisodeName};
  for (const auto& [box, edit] : Boxes()) boxes.push_back(edit);
  const auto entered = [this](const QWidget* control) {
    if (control == ui_->txtEpisodeName) live_.EnterDescription();
    for (const auto& [box, edit] : Boxes()) {
      if (control == edit) live_.EnterHeader(box);
    }
  };
  const auto tryLeave = [this](const QWidget* leaving) {
    bool mayLeave = true;
    if (leaving == ui_->txtEpisodeName) live_.LeaveDescription();
    for (const auto& [box, edit] : Boxes()) {
      if (leaving == edit) mayLeave = live_.LeaveHeader(box);
    }
    Refresh();
    return mayLeave;
  };
  boxFocus_ = std::make_unique<BoxFocus>(this, std::move(boxes), entered, tryLeave);
}

void frmClassAct::ConnectButtons() {
  const auto button = [this](QPushButton* source, void (LiveObservation::*click)()) {
    connect(source, &QPushButton::clicked, this, [this, click] {
      (live_.*click)();
      Refresh();
    });
  };
  button(ui_->cmdStartNewEp, &LiveObservation::AskToStartEpisode);
  button(ui_->cmdStartNewSg, &LiveObservation::AskToStartSegment);
  button(ui_->cmdStartNewQASg, &LiveObservation::StartQuestionAnswer);
  connect(ui_->cmdBailout, &QPushButton::clicked, this, &frmClassAct::Convert);
  button(ui_->Command9, &LiveObservation::OpenAbout);
  button(ui_->cmdReview, &LiveObservation::ReviewQuestions);
  button(ui_->cmdProof, &LiveObservation::ProofQuestions);
  button(ui_->cmdFieldNote, &LiveObservation::EditFieldNotes);
  button(ui_->Command1, &LiveObservation::CorrectTime);
  button(ui_->Command7, &LiveObservation::OpenSurvey);
  button(ui_->cmdPicture, &LiveObservation::ShowPicture);
  button(ui_->cmdQuit, &LiveObservation::EndClass);
  connect(ui_->cmdOfftaskActive, &QPushButton::clicked, this, [this] {
    clocks_.Offtask().TakeEstimate();
    Refresh();
  });
  new FormKeys(this,
               {.asking = {ui_->cmdStartNewEp, ui_->cmdStartNewSg, ui_->Command9, ui_->cmdReview,
                           ui_->cmdProof, ui_->cmdFieldNote, ui_->Command1, ui_->Command7,
                           ui_->cmdPicture, ui_->cmdOfftaskActive, ui_->cmdQuit},
                .own = [this](const QWidget* control, const QKeyEvent& key) {
                  return TakeKey(control, key);
                }});
}

QTimer* frmClassAct::AddTimer(const char* name, int interval, std::function<void()> tick) {
  auto* timer = new QTimer(this);
  timer->setObjectName(QLatin1String(name));
  timer->setInterval(interval);
  connect(timer, &QTimer::timeout, this, std::move(tick));
  return timer;
}

void frmClassAct::TickEstimates() {
  const auto pending = [this] { return live_.Running().schedule.OfftaskPending(); };
  const auto before = pending();
  live_.Estimates().Tick();
  if (pending() <= before) return;
  if (offtaskSound_) QApplication::beep();
  Announce(*ui_->cmdOfftaskActive, tr("An off-task estimate is due"));
}

void frmClassAct::StartTimers() {
  AddTimer("timerEpisode", 1000, [this] {
    clocks_.Tick();
    RefreshClocks();
  })->start();
  AddTimer("Timer3", 200, [this] {
    timer3_.Run([this] {
      conversionBlank_ = false;
      RefreshButtons();
    });
  })->start();
  offtaskTimer_ =
      AddTimer("offtaskTimer", 500, [this] { offtaskTick_.Run([this] { TickEstimates(); }); });
}

/// Makes hidden controls keep their places, so that nothing moves while the observer is looking.
void frmClassAct::KeepPlaces() {
  for (QWidget* child :
       std::initializer_list<QWidget*>{ui_->cmdStartNewEp, ui_->cmdStartNewSg, ui_->cmdStartNewQASg,
                                       ui_->cmdBailout, ui_->cmdReview, ui_->cmdProof,
                                       ui_->cmdOfftaskActive, ui_->cmdFieldNote, ui_->Command1}) {
    KeepPlace(child);
  }
  for (QWidget* child :
       std::initializer_list<QWidget*>{ui_->lblEpisode, ui_->lblEpiTime, ui_->lblSegment,
                                       ui_->lblSegTime, ui_->scrollArea, ui_->Frame6}) {
    KeepPlace(child);
  }
}

void frmClassAct::Refresh() {
  RefreshTexts();
  // Move the focus before hiding anything: Qt would pass the focus of a hidden button to an
  // arbitrary box.
  TakeFocusWish();
  RefreshClocks();
  coding_->Refresh();
  RefreshButtons();
}

void frmClassAct::RefreshTexts() {
  for (const auto& [box, edit] : Boxes()) ShowText(edit, live_.Header().Text(box));
  ShowText(ui_->lblClassID, live_.Header().ClassIdText());
  ShowText(ui_->txtEpisodeName, live_.CurrentEpisode().Descript);
}

void frmClassAct::RefreshClocks() {
  ShowClocks(clocks_, *ui_);
  ShowOfftask(clocks_.Offtask(), ui_->lblOfftask, ui_->cmdOfftaskActive);
}

void frmClassAct::RefreshButtons() {
  const AllowedActions allowed = live_.Allowed();
  const RunningClass& running = live_.Running();
  ui_->cmdStartNewEp->setVisible(allowed.episode);
  ui_->cmdStartNewSg->setVisible(allowed.segment);
  ui_->cmdStartNewQASg->setVisible(allowed.segment);
  ui_->cmdBailout->setVisible(allowed.conversion != Conversion::none);
  const QString conversion = ConversionCaption(allowed.conversion);
  // Its name stays while its caption is blank.
  if (!conversionBlank_)
    ui_->cmdBailout->setAccessibleName(QString(conversion).remove(QLatin1Char('&')));
  ShowText(ui_->cmdBailout, conversion);
  ui_->cmdReview->setVisible(allowed.review);
  ui_->cmdProof->setVisible(allowed.proof);
  ui_->Command7->setEnabled(allowed.survey);
  ui_->cmdQuit->setEnabled(allowed.end);
  ShowText(ui_->cmdQuit, running.awaitsSurvey ? tr("E&xit") : tr("&End Class"));
  for (QLabel* clock : {ui_->lblEpisode, ui_->lblEpiTime, ui_->lblSegment, ui_->lblSegTime}) {
    clock->setVisible(!live_.ClassStored());
  }
  ShowWaiting(running.awaitsSurvey);
  if (running.schedule.Running() != offtaskTimer_->isActive()) {
    running.schedule.Running() ? offtaskTimer_->start() : offtaskTimer_->stop();
  }
}

QString frmClassAct::ConversionCaption(Conversion conversion) const {
  if (conversionBlank_) return {};
  return conversion == Conversion::toEpisode ? tr("Sg. &to Ep.") : tr("Ep. &to Sg.");
}

void frmClassAct::Convert() {
  // The button is blank until the next refresh, so that a second click does not undo the first.
  if (!std::exchange(conversionBlank_, true)) live_.Convert();
  Refresh();
}

/// Once the class is stored, only the survey is left to do.
void frmClassAct::ShowWaiting(bool forSurvey) {
  for (QWidget* part : std::initializer_list<QWidget*>{ui_->scrollArea, ui_->Frame6, ui_->Command1,
                                                       ui_->cmdFieldNote}) {
    part->setVisible(!forSurvey);
  }
  ui_->cmdPicture->setVisible(forSurvey);
  for (QWidget* part : std::initializer_list<QWidget*>{ui_->Frame2, ui_->Frame3,
                                                       ui_->lblEpisodeName, ui_->txtEpisodeName}) {
    part->setEnabled(!forSurvey);
  }
}

void frmClassAct::TakeFocusWish() {
  const auto wish = live_.TakeFocus();
  if (!wish) return;
  switch (wish->control.kind) {
    case LiveObservation::Control::Kind::header:
      FocusBox(BoxOf(wish->control.box), wish->caret);
      break;
    case LiveObservation::Control::Kind::description:
      FocusBox(ui_->txtEpisodeName, wish->caret);
      break;
    case LiveObservation::Control::Kind::activity:
      coding_->FocusActivity(wish->control.activity);
      break;
    case LiveObservation::Control::Kind::survey:
      FocusVisibly(ui_->Command7);
      break;
  }
}

bool frmClassAct::TakeKey(const QWidget* control, const QKeyEvent& key) {
  for (const auto& [box, edit] : Boxes()) {
    if (control != edit) continue;
    if (IsEnter(key) || key.key() == Qt::Key_Down) {
      live_.HeaderEnterOrDown(box);
    } else if (key.key() == Qt::Key_Up) {
      live_.HeaderUp(box);
    } else {
      return false;
    }
    Refresh();
    return true;
  }
  if (control == ui_->txtEpisodeName && !IsEnter(key) && !key.text().isEmpty() &&
      key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab) {
    live_.KeyInDescription();
    Refresh();
  }
  return false;
}

void frmClassAct::showEvent(QShowEvent* event) {
  Refresh();
  QWidget::showEvent(event);
}

void frmClassAct::closeEvent(QCloseEvent* event) {
  const bool mayLeave = live_.Running().nothingEntered || boxFocus_->CheckCurrent();
  event->setAccepted(mayLeave && live_.RequestClose());
  Refresh();
}

}  // namespace orvex
