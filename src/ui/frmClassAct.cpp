#include "ui/frmClassAct.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTimer>
#include <array>
#include <utility>

#include "observe/tick.h"
#include "ui/ChoiceGroup.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui_frmClassAct.h"

namespace orvex {
namespace {

/// The window going to the back, or a list dropping down, leaves no box.
bool IsRealFocusChange(const QEvent& event) {
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

}  // namespace

frmClassAct::frmClassAct(const Services& services, QWidget* parent)
    : QWidget(parent),
      prompter_(services.prompter),
      live_(services),
      clocks_(services, live_),
      ui_(std::make_unique<Ui::frmClassAct>()) {
  ui_->setupUi(this);
  setWindowTitle(ToQt(live_.Caption()));
  BuildChoices();
  ConnectTexts();
  ConnectButtons();
  StartTimers();
  KeepPlaces();
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  Refresh();
}

frmClassAct::~frmClassAct() = default;

void frmClassAct::BuildChoices() {
  const auto group = [this](std::vector<QRadioButton*> buttons, auto choose) {
    auto* choices = new ChoiceGroup(std::move(buttons), this);
    connect(choices, &ChoiceGroup::Chosen, this, [this, choose](int position) {
      choose(position);
      Refresh();
    });
    return choices;
  };
  const auto code = [this](void (LiveObservation::*choose)(std::int16_t)) {
    return [this, choose](int position) { (live_.*choose)(static_cast<std::int16_t>(position)); };
  };
  activities_ =
      group({ui_->Option0_0, ui_->Option0_1, ui_->Option0_2, ui_->Option0_3, ui_->Option0_4,
             ui_->Option0_5, ui_->Option0_6, ui_->Option0_7, ui_->Option0_8, ui_->Option0_9,
             ui_->Option0_10, ui_->Option0_11, ui_->Option0_12, ui_->Option0_13, ui_->Option0_14,
             ui_->Option0_15, ui_->Option0_16},
            [this](int position) { live_.ChooseActivity(position + 1); });
  writingKinds_ =
      group({ui_->Option1_0, ui_->Option1_1}, code(&LiveObservation::ChooseWritingKind));
  groupTypes_ =
      group({ui_->Option2_0, ui_->Option2_1, ui_->Option2_2, ui_->Option2_3, ui_->Option2_4},
            code(&LiveObservation::ChooseGroupType));
  groupSolo_ = group({ui_->Option3_0, ui_->Option3_1}, code(&LiveObservation::ChooseGroupSolo));
  preparation_ = group({ui_->Option4_0, ui_->Option4_1}, code(&LiveObservation::ChoosePreparation));
  organization_ =
      group({ui_->Option5_0, ui_->Option5_1}, code(&LiveObservation::ChoosePresentationOrg));
}

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
  const auto combo = [this](QComboBox* box, void (LiveObservation::*type)(const std::string&)) {
    box->setCompleter(nullptr);  // what is typed counts to the letter
    connect(box, &QComboBox::currentTextChanged, this,
            [this, type](const QString& text) { (live_.*type)(FromQt(text)); });
  };
  combo(ui_->Combo1, &LiveObservation::TypeSource);
  combo(ui_->Combo2, &LiveObservation::TypeCognitiveLevel);
  combo(ui_->Combo3, &LiveObservation::TypeSeatworkOrg);
}

void frmClassAct::ConnectButtons() {
  const auto button = [this](QPushButton* source, void (LiveObservation::*click)()) {
    connect(source, &QPushButton::clicked, this, [this, click] {
      (live_.*click)();
      Refresh();
    });
  };
  button(ui_->cmdStartNewEp, &LiveObservation::cmdStartNewEp_Click);
  button(ui_->cmdStartNewSg, &LiveObservation::cmdStartNewSg_Click);
  button(ui_->cmdStartNewQASg, &LiveObservation::cmdStartNewQASg_Click);
  button(ui_->cmdBailout, &LiveObservation::cmdBailout_Click);
  button(ui_->Command9, &LiveObservation::Command9_Click);
  button(ui_->cmdQuit, &LiveObservation::cmdQuit_Click);
}

void frmClassAct::StartTimers() {
  auto* timerEpisode = new QTimer(this);
  connect(timerEpisode, &QTimer::timeout, this, [this] {
    clocks_.Tick();
    RefreshClocks();
  });
  timerEpisode->start(1000);
  auto* timer3 = new QTimer(this);
  connect(timer3, &QTimer::timeout, this, [this] {
    RunTick(prompter_, "timer3", [this] {
      live_.UpdateActivityControls();
      RefreshButtons();
    });
  });
  timer3->start(200);
}

/// What is hidden keeps its place, so that nothing under the observer's eyes moves.
void frmClassAct::KeepPlaces() {
  for (QWidget* child : ui_->Frame1->findChildren<QWidget*>()) KeepPlace(child);
  for (QWidget* child : {ui_->cmdStartNewEp, ui_->cmdStartNewSg, ui_->cmdStartNewQASg,
                         ui_->cmdBailout, ui_->cmdReview, ui_->cmdProof, ui_->cmdOfftaskActive}) {
    KeepPlace(child);
  }
}

void frmClassAct::Refresh() {
  RefreshTexts();
  // Before anything is hidden: Qt would send the focus of a hidden button to a box of its choice.
  TakeFocusWish();
  RefreshClocks();
  RefreshCoding();
  RefreshButtons();
}

void frmClassAct::RefreshTexts() {
  for (const auto& [box, edit] : Boxes()) ShowText(edit, live_.Header().Text(box));
  ShowText(ui_->lblClassID, live_.Header().ClassIdText());
  ShowText(ui_->txtEpisodeName, live_.Description());
}

void frmClassAct::RefreshClocks() {
  ShowText(ui_->lblEpisode, live_.EpisodeCaption());
  ShowText(ui_->lblSegment, live_.SegmentCaption());
  ShowText(ui_->lblEpiTime, clocks_.EpisodeTime());
  ShowText(ui_->lblSegTime, clocks_.SegmentTime());
  ShowText(ui_->lblCurrTime, clocks_.TimeOfDay());
  ShowText(ui_->lblOfftask, clocks_.Offtask().CountdownText());
  ui_->cmdOfftaskActive->setVisible(clocks_.Offtask().ButtonVisible());
  ShowText(ui_->cmdOfftaskActive, clocks_.Offtask().ButtonCaption());
  const std::string trouble = live_.LogTrouble();
  ShowText(ui_->lblLogTrouble, trouble);
  ui_->lblLogTrouble->setVisible(!trouble.empty());
}

void frmClassAct::RefreshCoding() {
  const SegmentCoding& coding = live_.Coding();
  for (QLabel* heading : {ui_->Label1, ui_->Label2, ui_->Label3, ui_->Label4}) {
    heading->setVisible(coding.choicesVisible);
  }
  activities_->SetVisible(coding.choicesVisible);
  activities_->ShowSelected(coding.selectedActivity - 1);
  ui_->Command9->setVisible(coding.aboutVisible);

  for (QGroupBox* box : {ui_->Frame7, ui_->Frame8, ui_->Frame9}) {
    box->setVisible(coding.presentationVisible);
  }
  groupSolo_->ShowSelected(coding.grpSolo);
  preparation_->ShowSelected(coding.prep);
  organization_->ShowSelected(coding.presentationOrg);

  ui_->Frame4->setVisible(coding.choicesVisible);
  writingKinds_->SetEnabled(coding.seatworkEnabled);
  writingKinds_->ShowSelected(coding.writingKind);
  for (QLabel* label : {ui_->lblSource, ui_->lblCognitive, ui_->lblOrganization}) {
    label->setEnabled(coding.seatworkEnabled);
  }
  const auto combo = [&coding](QComboBox* box, const std::string& text) {
    box->setEnabled(coding.seatworkEnabled);
    ShowText(box, text);
  };
  combo(ui_->Combo1, coding.source);
  combo(ui_->Combo2, coding.cognitiveLevel);
  combo(ui_->Combo3, coding.seatworkOrg);

  ui_->Frame5->setVisible(coding.choicesVisible);
  groupTypes_->SetEnabled(coding.groupTypesEnabled);
  groupTypes_->ShowSelected(coding.groupType);
}

void frmClassAct::RefreshButtons() {
  ui_->cmdStartNewEp->setVisible(live_.CanStartEpisode());
  ui_->cmdStartNewSg->setVisible(live_.CanStartSegment());
  ui_->cmdStartNewQASg->setVisible(live_.CanStartSegment());
  ui_->cmdBailout->setVisible(live_.ConversionVisible());
  ShowText(ui_->cmdBailout, live_.ConversionCaption());
  ui_->cmdReview->setVisible(live_.CanDivide());
  ui_->cmdProof->setVisible(live_.ProofVisible());
  ui_->cmdQuit->setEnabled(live_.CanEndClass());
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
      activities_->Focus(wish->control.activity - 1);
      break;
  }
}

bool frmClassAct::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      return HandleKey(watched, *static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      HandleFocus(watched, *event);
      return false;
    default:
      return false;
  }
}

bool frmClassAct::HandleKey(const QObject* watched, const QKeyEvent& event) {
  if (IsSpareMnemonic(event)) return true;
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  for (const auto& [box, edit] : Boxes()) {
    if (watched != edit) continue;
    if (enter || event.key() == Qt::Key_Down) {
      live_.HeaderEnterOrDown(box);
    } else if (event.key() == Qt::Key_Up) {
      live_.HeaderUp(box);
    } else {
      return false;
    }
    Refresh();
    return true;
  }
  if (watched == ui_->txtEpisodeName && !enter && !event.text().isEmpty() &&
      event.key() != Qt::Key_Tab && event.key() != Qt::Key_Backtab) {
    live_.KeyInDescription();
    Refresh();
  }
  return enter;
}

void frmClassAct::HandleFocus(QObject* watched, const QEvent& event) {
  const bool entered = event.type() == QEvent::FocusIn;
  const bool wasHere = focused_ == watched;
  if (entered) focused_ = watched;
  if (!IsRealFocusChange(event)) return;
  // A box that wants the focus back takes it from one that never had it.
  if (!entered && !wasHere) return;
  if (!entered) focused_ = nullptr;
  auto* control = qobject_cast<QWidget*>(watched);
  if (entered && ui_->Frame1->isAncestorOf(control)) ui_->scrollArea->ensureWidgetVisible(control);
  for (const auto& [box, edit] : Boxes()) {
    if (watched != edit) continue;
    if (entered) {
      live_.EnterHeader(box);
    } else {
      live_.LeaveHeader(box);
      Refresh();
    }
  }
  if (watched != ui_->txtEpisodeName) return;
  if (entered) {
    live_.EnterDescription();
  } else {
    live_.LeaveDescription();
  }
}

void frmClassAct::showEvent(QShowEvent* event) {
  Refresh();
  QWidget::showEvent(event);
}

void frmClassAct::closeEvent(QCloseEvent* event) {
  event->setAccepted(live_.RequestClose());
  Refresh();
}

}  // namespace orvex
