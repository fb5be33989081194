#include "ui/forms/dlgUnfinished.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTextDocument>
#include <QTreeWidgetItem>
#include <algorithm>
#include <array>
#include <utility>

#include "ui/AccessKeys.h"
#include "ui/show.h"
#include "ui_dlgUnfinished.h"

namespace orvex {

dlgUnfinished::dlgUnfinished(const std::vector<UnfinishedItem>& items, QWidget* parent)
    : QDialog(parent), items_(items), ui_(std::make_unique<Ui::dlgUnfinished>()) {
  ui_->setupUi(this);
  AddRows();
  FitColumns();
  ConnectButton(ui_->cmdGoOn, Answer::yes);
  ConnectButton(ui_->cmdClose, Answer::no);
  ConnectButton(ui_->cmdLater, Answer::cancel);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
  connect(ui_->lstUnfinished, &QTreeWidget::currentItemChanged, this, &dlgUnfinished::ShowButtons);
  ui_->lstUnfinished->setCurrentItem(ui_->lstUnfinished->topLevelItem(0));
  ui_->lstUnfinished->setFocus();
  ShowButtons();
}

dlgUnfinished::~dlgUnfinished() = default;

void dlgUnfinished::AddRows() {
  for (const UnfinishedItem& item : items_) {
    auto* row = new QTreeWidgetItem(ui_->lstUnfinished);
    const std::array cells = {&item.what, &item.extent, &item.place};
    for (int column = 0; column < static_cast<int>(cells.size()); ++column) {
      const QString text = ToQt(*cells[static_cast<std::size_t>(column)]);
      row->setText(column, text);
      row->setToolTip(column, Qt::convertFromPlainText(text));
    }
  }
}

/// The last column, the place, gets the width that the others leave; a long path is elided in the
/// middle.
void dlgUnfinished::FitColumns() {
  ui_->lstUnfinished->setTextElideMode(Qt::ElideMiddle);
  QHeaderView* header = ui_->lstUnfinished->header();
  header->setSectionResizeMode(QHeaderView::ResizeToContents);
  header->setSectionResizeMode(header->count() - 1, QHeaderView::Stretch);
}

void dlgUnfinished::ConnectButton(QPushButton* button, Answer answer) {
  connect(button, &QPushButton::clicked, this, [this, answer] {
    choice_ = {.item = static_cast<std::size_t>(ui_->lstUnfinished->currentIndex().row()),
               .answer = answer};
    accept();
  });
}

const UnfinishedItem& dlgUnfinished::Current() const {
  return items_[static_cast<std::size_t>(std::max(0, ui_->lstUnfinished->currentIndex().row()))];
}

void dlgUnfinished::ShowButtons() {
  const Message& question = Current().question;
  const std::array buttons = {std::pair{Answer::yes, ui_->cmdGoOn},
                              std::pair{Answer::no, ui_->cmdClose},
                              std::pair{Answer::cancel, ui_->cmdLater}};
  for (const auto& [answer, button] : buttons) {
    for (const auto& [captioned, caption] : question.captions) {
      if (captioned == answer) ShowText(button, WithAccessKey(caption));
    }
    if (answer == question.defaultAnswer) button->setDefault(true);
  }
}

}  // namespace orvex
