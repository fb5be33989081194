#include "ui/widgets/CodesDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QVariantList>

#include "ui/widgets/PairsModel.h"

namespace orvex {

void CodesDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const QStringList letters = item.text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  item.text.clear();
  const QStyle* style = item.widget ? item.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

  const QVariantList differing = index.data(PairsModel::kDifferingRole).toList();
  const bool isSelected = item.state.testFlag(QStyle::State_Selected);
  const bool isActive = item.state.testFlag(QStyle::State_Active);
  const QPalette::ColorGroup group = isActive ? QPalette::Active : QPalette::Inactive;
  const QColor ink =
      item.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
  painter->save();
  painter->setPen(ink);
  const int width = item.fontMetrics.horizontalAdvance(QLatin1Char('M')) + 4;
  QRect cell(item.rect.left() + 4, item.rect.top() + 2, width, item.rect.height() - 4);
  for (qsizetype i = 0; i < letters.size(); ++i) {
    const bool differs = differing.contains(static_cast<int>(i));
    QFont font = item.font;
    font.setBold(differs);
    painter->setFont(font);
    painter->drawText(cell, Qt::AlignCenter, letters[i]);
    if (differs) painter->drawRect(cell.adjusted(0, 0, -1, -1));
    cell.translate(width, 0);
  }
  painter->restore();
}

}  // namespace orvex
