#include "ui/forms/frmAboutInputBox.h"

#include "observe/live_observation.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui_frmAboutInputBox.h"

namespace orvex {

frmAboutInputBox::frmAboutInputBox(LiveObservation& live, QWidget* parent)
    : QDialog(parent), live_(live), ui_(std::make_unique<Ui::frmAboutInputBox>()) {
  ui_->setupUi(this);
  connect(ui_->txtAboutData, &QLineEdit::textEdited, this, [this](const QString& text) {
    live_.TypeAbout(FromQt(text));
    Refresh();
  });
  connect(ui_->Command1, &QPushButton::clicked, this, &QDialog::accept);
  new FormKeys(this);
  Refresh();
}

frmAboutInputBox::~frmAboutInputBox() = default;

void frmAboutInputBox::Refresh() {
  ShowText(ui_->txtAboutData, live_.Running().coding.about);
}

void frmAboutInputBox::setVisible(bool visible) {
  QDialog::setVisible(visible);
  // Only now, because a dialog selects the text of its focused box while it is being shown.
  if (visible) FocusBox(ui_->txtAboutData, Caret::atEnd);
}

}  // namespace orvex
