#include "ui/widgets/FigureTable.h"

#include <QGridLayout>
#include <QLabel>

#include "ui/show.h"

namespace orvex {
namespace {

QLabel* Cell(const QString& text, int column, bool isHeading) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment((column == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
  if (!isHeading) {
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
  }
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  return label;
}

}  // namespace

FigureTable::FigureTable(QWidget* parent) : QGroupBox(parent), grid_(new QGridLayout(this)) {
  grid_->setHorizontalSpacing(14);
  grid_->setVerticalSpacing(3);
  grid_->setColumnStretch(0, 1);
}

void FigureTable::Show(const QStringList& headings, const std::vector<QStringList>& rows) {
  while (QLayoutItem* item = grid_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  int line = 0;
  const auto add = [&](const QStringList& cells, bool isHeading) {
    for (int column = 0; column < cells.size(); ++column) {
      grid_->addWidget(Cell(cells[column], column, isHeading), line, column);
    }
    ++line;
  };
  if (!headings.isEmpty()) add(headings, true);
  for (const QStringList& row : rows) add(row, false);
  grid_->setRowStretch(line, 1);
}

}  // namespace orvex
