#include "ui/forms/frmOfftask.h"

#include <QEvent>
#include <QTimer>
#include <utility>

#include "ui/keys/BoxFocus.h"
#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui_frmOfftask.h"

namespace orvex {

using Control = OfftaskDialog::Control;

frmOfftask::frmOfftask(OfftaskPrompt& prompt, QWidget* parent)
    : QDialog(parent), dialog_(prompt), ui_(std::make_unique<Ui::frmOfftask>()) {
  ui_->setupUi(this);
  ConnectBox(ui_->Text1, Control::offtask);
  ConnectBox(ui_->Text3, Control::students);
  boxFocus_ = std::make_unique<BoxFocus>(
      this, std::vector<QWidget*>{ui_->Text1, ui_->Text3},
      [this](const QWidget* box) { dialog_.Enter(ControlOf(box)); },
      [this](const QWidget* box) {
        const bool mayLeave = dialog_.Leave(ControlOf(box));
        Refresh();
        return mayLeave;
      });
  connect(ui_->Command1, &QPushButton::clicked, this, &frmOfftask::accept);
  connect(ui_->Command2, &QPushButton::clicked, this, &frmOfftask::reject);
  new FormKeys(this, {.pressedByEnter = {ui_->Command1, ui_->Command2},
                      .own = [this](const QWidget* control, const QKeyEvent& key) {
                        return TakeKey(control, key);
                      }});
  Refresh();
}

frmOfftask::~frmOfftask() = default;

void frmOfftask::ConnectBox(QLineEdit* box, Control control) {
  connect(box, &QLineEdit::textEdited, this, [this, control](const QString& text) {
    dialog_.Type(control, FromQt(text));
    Refresh();
  });
}

Control frmOfftask::ControlOf(const QObject* box) const {
  return box == ui_->Text1 ? Control::offtask : Control::students;
}

void frmOfftask::Refresh() {
  ShowText(ui_->Text1, dialog_.Text(Control::offtask));
  ShowText(ui_->Text3, dialog_.Text(Control::students));
  if (const auto wish = dialog_.TakeFocus()) Focus(*wish);
}

void frmOfftask::Focus(const OfftaskDialog::Focus::Target& wish) {
  switch (wish.control) {
    case Control::offtask:
      return FocusBox(ui_->Text1, wish.caret);
    case Control::students:
      return FocusBox(ui_->Text3, wish.caret);
    case Control::ok:
      return FocusVisibly(ui_->Command1);
  }
}

void frmOfftask::setVisible(bool visible) {
  QDialog::setVisible(visible);
  if (!visible) return;
  FocusBox(ui_->Text1, Caret::selectAll);
}

void frmOfftask::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || std::exchange(opened_, true)) return;
  // The focused box deselects the others when the window becomes active, so wait for that.
  QTimer::singleShot(0, this, [this] {
    if (!ui_->Text3->hasFocus()) ui_->Text3->selectAll();
  });
}

void frmOfftask::accept() {
  if (boxFocus_->CheckCurrent()) QDialog::accept();
}

void frmOfftask::reject() {
  // Text that is not a number must not be kept for the next time.
  boxFocus_->CheckCurrent();
  QDialog::reject();
}

bool frmOfftask::TakeKey(const QWidget* control, const QKeyEvent& key) {
  if (control != ui_->Text1 && control != ui_->Text3) return false;
  if (IsEnter(key) || key.key() == Qt::Key_Down) {
    dialog_.EnterOrDown(ControlOf(control));
  } else if (key.key() == Qt::Key_Up) {
    dialog_.Up(ControlOf(control));
  } else {
    return false;
  }
  Refresh();
  return true;
}

}  // namespace orvex
