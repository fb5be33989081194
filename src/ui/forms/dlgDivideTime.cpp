#include "ui/forms/dlgDivideTime.h"

#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui_dlgDivideTime.h"

namespace orvex {

dlgDivideTime::dlgDivideTime(int totalSeconds, QWidget* parent)
    : QDialog(parent), divide_(totalSeconds), ui_(std::make_unique<Ui::dlgDivideTime>()) {
  ui_->setupUi(this);
  // This box only follows the second one, so it must not look as if it accepted input.
  QPalette plain = ui_->txtFirstSg->palette();
  plain.setBrush(QPalette::Base, plain.window());
  plain.setBrush(QPalette::Text, plain.windowText());
  ui_->txtFirstSg->setPalette(plain);
  QLineEdit* second = ui_->UpDown1->Box();
  second->setObjectName(QStringLiteral("txtSecondSg"));
  connect(second, &QLineEdit::textEdited, this, [this](const QString& text) {
    divide_.TypeSecond(FromQt(text));
    Refresh();
  });
  connect(ui_->UpDown1, &SegmentBox::Stepped, this, [this](int steps) {
    divide_.Step(steps);
    Refresh();
  });
  connect(ui_->OKButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
  new FormKeys(this, {.pressedByEnter = {ui_->OKButton, ui_->CancelButton},
                      .next = [this](const QWidget*) { return ui_->OKButton; }});
  Refresh();
  second->selectAll();
  ui_->UpDown1->setFocus();
}

dlgDivideTime::~dlgDivideTime() = default;

void dlgDivideTime::Refresh() {
  ShowText(ui_->txtFirstSg, divide_.FirstText());
  ShowText(ui_->UpDown1->Box(), divide_.SecondText());
  ui_->UpDown1->EnableSteps(divide_.CanStep(1), divide_.CanStep(-1));
}

}  // namespace orvex
