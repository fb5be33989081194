#include "ui/forms/LiveCodingPanel.h"

#include <QComboBox>
#include <QRadioButton>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "observe/live_observation.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/ChoiceGroup.h"
#include "ui_frmClassAct.h"

namespace orvex {

LiveCodingPanel::LiveCodingPanel(Ui::frmClassAct& ui, LiveObservation& live,
                                 std::function<void()> chosen, QObject* parent)
    : QObject(parent), ui_(ui), live_(live), chosen_(std::move(chosen)) {
  BuildChoices();
  ConnectCombos();
  // Hidden controls keep their places, so that nothing moves while the observer is looking.
  for (QWidget* child : ui.Frame1->findChildren<QWidget*>()) KeepPlace(child);
}

/// The buttons of the activities, in the order of their numbers, with the captions of the scheme.
std::vector<QRadioButton*> LiveCodingPanel::ActivityButtons() const {
  std::vector<QRadioButton*> buttons;
  for (const Activity& activity : kActivities) {
    const QString name = QStringLiteral("Option0_%1").arg(activity.number - 1);
    buttons.push_back(ui_.Frame1->findChild<QRadioButton*>(name));
    buttons.back()->setText(ToQt(ActivityCaption(activity.number)));
    buttons.back()->setToolTip(QString::number(activity.number));
  }
  return buttons;
}

void LiveCodingPanel::BuildChoices() {
  const auto group = [this](std::vector<QRadioButton*> buttons, auto choose) {
    auto* choices = new ChoiceGroup(std::move(buttons), this);
    connect(choices, &ChoiceGroup::Chosen, this, [this, choose](int position) {
      choose(position);
      chosen_();
    });
    return choices;
  };
  const auto codes = [this, group](SubCode of, std::vector<QRadioButton*> buttons) {
    codes_.push_back({of, group(std::move(buttons), [&live = live_, of](int position) {
                        live.ChooseCode(of, static_cast<std::int16_t>(position));
                      })});
  };
  activities_ =
      group(ActivityButtons(), [this](int position) { live_.ChooseActivity(position + 1); });
  activities_->MarkSelected();
  activities_->CountButtons();
  codes(SubCode::writing, {ui_.Option1_0, ui_.Option1_1});
  codes(SubCode::groupWork,
        {ui_.Option2_0, ui_.Option2_1, ui_.Option2_2, ui_.Option2_3, ui_.Option2_4});
  codes(SubCode::groupSolo, {ui_.Option3_0, ui_.Option3_1});
  codes(SubCode::preparation, {ui_.Option4_0, ui_.Option4_1});
  codes(SubCode::organization, {ui_.Option5_0, ui_.Option5_1});
}

void LiveCodingPanel::ConnectCombos() {
  lists_ = {{SubCode::seatworkSource, ui_.Combo1, ui_.lblSource},
            {SubCode::seatworkLevel, ui_.Combo2, ui_.lblCognitive},
            {SubCode::seatworkOrganization, ui_.Combo3, ui_.lblOrganization}};
  for (const auto& [code, box, label] : lists_) {
    box->setCompleter(nullptr);  // what is typed counts to the letter
    connect(box, &QComboBox::currentTextChanged, this,
            [&live = live_, of = code](const QString& text) { live.TypeCode(of, FromQt(text)); });
  }
}

void LiveCodingPanel::FocusActivity(int activity) {
  activities_->Focus(activity - 1);
}

void LiveCodingPanel::Refresh() {
  const SegmentCoding& coding = live_.Running().coding;
  for (QLabel* heading : {ui_.Label1, ui_.Label2, ui_.Label3, ui_.Label4}) {
    heading->setVisible(coding.choicesVisible);
  }
  activities_->SetVisible(coding.choicesVisible);
  const int activity = live_.Running().ChosenActivity();
  activities_->ShowSelected(activity - 1);
  const bool hasAbout = ActivityOf(activity).carriesAbout;
  ui_.Command9->setVisible(hasAbout);
  ui_.lblAbout->setVisible(hasAbout);
  ShowText(ui_.lblAbout, hasAbout ? coding.about : std::string());

  ui_.Frame7->setVisible(Carries(activity, SubCode::groupSolo));
  ui_.Frame8->setVisible(Carries(activity, SubCode::preparation));
  ui_.Frame9->setVisible(Carries(activity, SubCode::organization));
  ui_.Frame4->setVisible(coding.choicesVisible);
  ui_.Frame5->setVisible(coding.choicesVisible);
  for (const auto& [code, buttons] : codes_) {
    buttons->SetEnabled(Carries(activity, code));
    buttons->ShowSelected(coding.Chosen(code));
  }
  for (const auto& [code, box, label] : lists_) {
    label->setEnabled(Carries(activity, code));
    box->setEnabled(Carries(activity, code));
    ShowText(box, coding.Typed(code));
  }
}

}  // namespace orvex
