#include "ui/widgets/ReportTable.h"

#include <QHeaderView>
#include <algorithm>

#include "ui/text.h"

namespace orvex {
namespace {

constexpr int kPadding = 12;
constexpr int kLeading = 6;

}  // namespace

ReportTable::ReportTable(QWidget* parent) : QTreeWidget(parent) {
  setRootIsDecorated(false);
  setIndentation(0);
  setFocusPolicy(Qt::NoFocus);
  setSelectionMode(QAbstractItemView::NoSelection);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setContextMenuPolicy(Qt::NoContextMenu);
  header()->setSectionsMovable(false);
  header()->setSectionsClickable(false);
}

void ReportTable::Show(const TimeSummaryBlock& block) {
  setColumnCount(3);
  setHeaderLabels({ToQt(block.heading), ToQt(kTimeColumn), ToQt(kOfftaskColumn)});
  for (const TimeSummaryRow& row : block.rows) {
    auto* item = new QTreeWidgetItem(this, {ToQt(row.name), ToQt(row.time), ToQt(row.offtask)});
    const QFontMetrics metrics = fontMetrics();
    item->setSizeHint(
        0, QSize(metrics.horizontalAdvance(item->text(0)) + kPadding, metrics.height() + kLeading));
    item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
  }
  headerItem()->setTextAlignment(0, Qt::AlignLeft | Qt::AlignVCenter);
  headerItem()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
  headerItem()->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(0, QHeaderView::Stretch);
  header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
  updateGeometry();
}

QSize ReportTable::sizeHint() const {
  int width = 2 * frameWidth();
  for (int column = 0; column < columnCount(); ++column) {
    width += std::max(sizeHintForColumn(column), header()->sectionSizeHint(column)) + kPadding;
  }
  const int rows = topLevelItemCount();
  const int rowHeight = rows > 0 ? sizeHintForRow(0) : 0;
  return {width, header()->sizeHint().height() + rows * rowHeight + 2 * frameWidth()};
}

}  // namespace orvex
