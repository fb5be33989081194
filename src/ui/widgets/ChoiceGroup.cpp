#include "ui/widgets/ChoiceGroup.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "ui/keys/PressGuard.h"
#include "ui/keys/RovingFocus.h"

namespace orvex {
namespace {

/// Gives `button` the colours of a selected row: they are seen from afar and move nothing.
void MarkAsSelected(QRadioButton& button, bool selected) {
  if (button.autoFillBackground() == selected) return;
  QPalette colours;
  if (selected) {
    colours = button.palette();
    const QColor text = colours.color(QPalette::Active, QPalette::HighlightedText);
    const QColor ground = colours.color(QPalette::Active, QPalette::Highlight);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      colours.setColor(group, QPalette::WindowText, text);
      colours.setColor(group, QPalette::Highlight, ground);
    }
  }
  button.setPalette(colours);
  button.setBackgroundRole(selected ? QPalette::Highlight : QPalette::NoRole);
  button.setAutoFillBackground(selected);
}

}  // namespace

ChoiceGroup::ChoiceGroup(std::vector<QRadioButton*> buttons, QObject* parent)
    : QObject(parent),
      buttons_(std::move(buttons)),
      focus_(new RovingFocus({buttons_.begin(), buttons_.end()}, this)) {
  for (int position = 0; position < Count(); ++position) {
    QRadioButton* button = Button(position);
    button->setAutoExclusive(false);
    new PressGuard(button);
    connect(button, &QRadioButton::clicked, this, [this, position] {
      // The click has already switched the button, but the logic decides what is selected.
      ShowSelected(selected_);
      Q_EMIT Chosen(position);
    });
  }
}

QRadioButton* ChoiceGroup::Button(int position) const {
  return buttons_.at(static_cast<std::size_t>(position));
}

void ChoiceGroup::ShowSelected(int position) {
  selected_ = position;
  focus_->SetEntry(std::max(selected_, 0));
  for (int i = 0; i < Count(); ++i) {
    Button(i)->setChecked(i == position);
    if (marked_) MarkAsSelected(*Button(i), i == position);
  }
}

void ChoiceGroup::CountButtons() {
  focus_->CountButtons();
}

void ChoiceGroup::SetVisible(bool visible) {
  for (QRadioButton* button : buttons_) button->setVisible(visible);
}

void ChoiceGroup::SetEnabled(bool enabled) {
  for (QRadioButton* button : buttons_) button->setEnabled(enabled);
}

void ChoiceGroup::Focus(int position) {
  focus_->Focus(position);
}

}  // namespace orvex
