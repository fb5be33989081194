#include "ui/forms/frmAdjust.h"

#include <QEvent>
#include <QRegularExpressionValidator>
#include <algorithm>

#include "model/time_of_day.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui_frmAdjust.h"

namespace orvex {
namespace {

constexpr double kTicks = 20;

}  // namespace

frmAdjust::frmAdjust(const SecondsPrompt& prompt, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmAdjust>()) {
  ui_->setupUi(this);
  const int spacing = static_cast<int>(RoundHalfEven(prompt.maximum / kTicks));
  ui_->Slider1->setRange(0, prompt.maximum);
  ui_->Slider1->setTickInterval(spacing);
  ui_->Slider1->setPageStep(std::max(1, spacing));
  ui_->Slider1->setValue(prompt.seconds);
  ui_->Label2->setText(QString::number(prompt.maximum));
  ui_->Text1->setText(QString::number(prompt.seconds));
  ui_->Text1->setValidator(
      new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), ui_->Text1));

  connect(ui_->Slider1, &QSlider::valueChanged, this, [this](int seconds) {
    // While the user types, the slider follows the box and not the other way round.
    if (!ui_->Text1->hasFocus()) ui_->Text1->setText(QString::number(seconds));
  });
  connect(ui_->Text1, &QLineEdit::textEdited, this, [this](const QString& text) {
    // A number that is too large moves the slider to its end; the box corrects itself when left.
    if (!text.isEmpty()) ui_->Slider1->setValue(text.toInt());
  });
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  ui_->Text1->installEventFilter(this);
  new FormKeys(this, {.pressedByEnter = {ui_->cmdOK, ui_->cmdCancel},
                      .next = [this](const QWidget*) { return ui_->cmdOK; }});
  FocusVisibly(ui_->Slider1);
}

frmAdjust::~frmAdjust() = default;

int frmAdjust::Seconds() const {
  return ui_->Slider1->value();
}

bool frmAdjust::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) ui_->Text1->setText(QString::number(Seconds()));
  return QDialog::eventFilter(watched, event);
}

}  // namespace orvex
