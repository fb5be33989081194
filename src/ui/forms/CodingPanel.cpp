#include "ui/forms/CodingPanel.h"

#include <QComboBox>
#include <QEvent>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "observe/live_observation.h"
#include "ui/keys/PressGuard.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/ChoiceGroup.h"
#include "ui_frmClassAct.h"

namespace orvex {

CodingPanel::CodingPanel(Ui::frmClassAct& ui, LiveObservation& live, std::function<void()> chosen,
                         QObject* parent)
    : QObject(parent), ui_(ui), live_(live), chosen_(std::move(chosen)) {
  BuildChoices();
  ConnectCombos();
  // What is hidden keeps its place, so that nothing under the observer's eyes moves.
  for (QWidget* child : ui.Frame1->findChildren<QWidget*>()) KeepPlace(child);
}

void CodingPanel::BuildChoices() {
  const auto group = [this](std::vector<QRadioButton*> buttons, auto choose) {
    auto* choices = new ChoiceGroup(std::move(buttons), this);
    connect(choices, &ChoiceGroup::Chosen, this, [this, choose](int position) {
      choose(position);
      chosen_();
    });
    return choices;
  };
  const auto code = [this](void (LiveObservation::*choose)(std::int16_t)) {
    return [&live = live_, choose](int position) {
      (live.*choose)(static_cast<std::int16_t>(position));
    };
  };
  activities_ = group(
      {ui_.Option0_0, ui_.Option0_1, ui_.Option0_2, ui_.Option0_3, ui_.Option0_4, ui_.Option0_5,
       ui_.Option0_6, ui_.Option0_7, ui_.Option0_8, ui_.Option0_9, ui_.Option0_10, ui_.Option0_11,
       ui_.Option0_12, ui_.Option0_13, ui_.Option0_14, ui_.Option0_15, ui_.Option0_16},
      [this](int position) { live_.ChooseActivity(position + 1); });
  writingKinds_ = group({ui_.Option1_0, ui_.Option1_1}, code(&LiveObservation::ChooseWritingKind));
  groupTypes_ = group({ui_.Option2_0, ui_.Option2_1, ui_.Option2_2, ui_.Option2_3, ui_.Option2_4},
                      code(&LiveObservation::ChooseGroupType));
  groupSolo_ = group({ui_.Option3_0, ui_.Option3_1}, code(&LiveObservation::ChooseGroupSolo));
  preparation_ = group({ui_.Option4_0, ui_.Option4_1}, code(&LiveObservation::ChoosePreparation));
  organization_ =
      group({ui_.Option5_0, ui_.Option5_1}, code(&LiveObservation::ChoosePresentationOrg));
}

void CodingPanel::ConnectCombos() {
  const auto combo = [this](QComboBox* box, void (LiveObservation::*type)(const std::string&)) {
    box->setCompleter(nullptr);  // what is typed counts to the letter
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(this);
    new PressGuard(box);
    new PressGuard(box->lineEdit());
    connect(box, &QComboBox::currentTextChanged, this,
            [&live = live_, type](const QString& text) { (live.*type)(FromQt(text)); });
  };
  combo(ui_.Combo1, &LiveObservation::TypeSource);
  combo(ui_.Combo2, &LiveObservation::TypeCognitiveLevel);
  combo(ui_.Combo3, &LiveObservation::TypeSeatworkOrg);
}

void CodingPanel::FocusActivity(int activity) {
  activities_->Focus(activity - 1);
}

void CodingPanel::Refresh() {
  const SegmentCoding& coding = live_.Coding();
  for (QLabel* heading : {ui_.Label1, ui_.Label2, ui_.Label3, ui_.Label4}) {
    heading->setVisible(coding.choicesVisible);
  }
  activities_->SetVisible(coding.choicesVisible);
  activities_->ShowSelected(live_.SelectedActivity() - 1);
  ui_.Command9->setVisible(coding.aboutVisible);

  for (QGroupBox* box : {ui_.Frame7, ui_.Frame8, ui_.Frame9}) {
    box->setVisible(coding.presentationVisible);
  }
  groupSolo_->ShowSelected(coding.grpSolo);
  preparation_->ShowSelected(coding.prep);
  organization_->ShowSelected(coding.presentationOrg);

  ui_.Frame4->setVisible(coding.choicesVisible);
  writingKinds_->SetEnabled(coding.seatworkEnabled);
  writingKinds_->ShowSelected(coding.writingKind);
  for (QLabel* label : {ui_.lblSource, ui_.lblCognitive, ui_.lblOrganization}) {
    label->setEnabled(coding.seatworkEnabled);
  }
  const auto combo = [&coding](QComboBox* box, const std::string& text) {
    box->setEnabled(coding.seatworkEnabled);
    ShowText(box, text);
  };
  combo(ui_.Combo1, coding.source);
  combo(ui_.Combo2, coding.cognitiveLevel);
  combo(ui_.Combo3, coding.seatworkOrg);

  ui_.Frame5->setVisible(coding.choicesVisible);
  groupTypes_->SetEnabled(coding.groupTypesEnabled);
  groupTypes_->ShowSelected(coding.groupType);
}

bool CodingPanel::eventFilter(QObject* watched, QEvent* event) {
  // The wheel scrolls the form; over a list that nobody is in, it must not code.
  if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
  event->ignore();
  return true;
}

}  // namespace orvex
