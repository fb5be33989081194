#include "ui/forms/frmChooseQAs.h"

#include "ui/keys/FormKeys.h"
#include "ui/show.h"
#include "ui_frmChooseQAs.h"

namespace orvex {

frmChooseQAs::frmChooseQAs(const Episode& episode, QWidget* parent)
    : QDialog(parent), chooser_(episode), ui_(std::make_unique<Ui::frmChooseQAs>()) {
  ui_->setupUi(this);
  connect(ui_->lstEp1st, &RowList::SelectionMade, this, [this] {
    chooser_.SelectFirst(ui_->lstEp1st->SelectedRows());
    Refresh();
  });
  connect(ui_->lstEp2nd, &RowList::SelectionMade, this, [this] {
    chooser_.SelectSecond(ui_->lstEp2nd->SelectedRows());
    Refresh();
  });
  connect(ui_->Command1, &QPushButton::clicked, this, [this] {
    chooser_.MoveToSecond();
    Refresh();
  });
  connect(ui_->Command2, &QPushButton::clicked, this, [this] {
    chooser_.MoveToFirst();
    Refresh();
  });
  connect(ui_->OKButton, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
  new FormKeys(this,
               {.pressedByEnter = {ui_->Command1, ui_->Command2, ui_->OKButton, ui_->CancelButton},
                .next = [this](const QWidget* control) {
                  return control == ui_->lstEp1st ? ui_->Command1 : ui_->OKButton;
                }});
  Refresh();
  ui_->lstEp1st->setFocus();
}

frmChooseQAs::~frmChooseQAs() = default;

void frmChooseQAs::Refresh() {
  constexpr int kWhereItIs = 0;
  ui_->lstEp1st->ShowRows(chooser_.First().rows, chooser_.First().selected, kWhereItIs);
  ui_->lstEp2nd->ShowRows(chooser_.Second().rows, chooser_.Second().selected, kWhereItIs);
}

}  // namespace orvex
