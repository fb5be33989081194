#include "ui/widgets/StudyColumns.h"

#include <QAction>
#include <QActionGroup>
#include <QHeaderView>
#include <QMenu>
#include <algorithm>

#include "ui/text.h"
#include "ui/widgets/StudyTable.h"

namespace orvex {
namespace {

int SectionOf(StudyColumn column) {
  return static_cast<int>(column);
}

}  // namespace

StudyColumns::StudyColumns(StudyTable& table)
    : QObject(&table), table_(table), menu_(new QMenu(&table)) {
  QHeaderView* headings = table.horizontalHeader();
  headings->setSectionsMovable(true);
  headings->setStretchLastSection(true);
  headings->setSectionsClickable(true);
  headings->setSortIndicatorShown(true);
  headings->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(headings, &QHeaderView::sectionClicked, this, &StudyColumns::SortBy);
  connect(headings, &QWidget::customContextMenuRequested, this,
          [this, headings](const QPoint& at) { menu_->popup(headings->mapToGlobal(at)); });
  connect(menu_, &QMenu::aboutToShow, this, &StudyColumns::FillMenu);
}

void StudyColumns::Arrange(const StudyLayout& layout) {
  table_.FitColumns();
  QHeaderView* headings = table_.horizontalHeader();
  int place = 0;
  for (const StudyLayout::Column& column : layout.columns) {
    const int section = SectionOf(column.column);
    headings->moveSection(headings->visualIndex(section), place++);
    if (column.width > 0) headings->resizeSection(section, column.width);
    headings->setSectionHidden(section, !column.shown);
  }
  sortedBy_ = SectionOf(layout.sortedBy);
  descending_ = layout.descending;
  ShowSorting();
}

void StudyColumns::Store(StudyLayout& layout) const {
  const QHeaderView* headings = table_.horizontalHeader();
  const StudyLayout before = layout;
  layout.columns.clear();
  for (int place = 0; place < headings->count(); ++place) {
    const int section = headings->logicalIndex(place);
    const auto column = static_cast<StudyColumn>(section);
    const bool hidden = headings->isSectionHidden(section);
    // A hidden column has no width of its own; it keeps the one it had.
    const auto known = std::ranges::find(before.columns, column, &StudyLayout::Column::column);
    const int width = !hidden                         ? headings->sectionSize(section)
                      : known == before.columns.end() ? 0
                                                      : known->width;
    layout.columns.push_back({column, width, !hidden});
  }
  layout.sortedBy = static_cast<StudyColumn>(sortedBy_);
  layout.descending = descending_;
}

std::vector<StudyColumn> StudyColumns::Shown() const {
  StudyLayout layout;
  Store(layout);
  std::vector<StudyColumn> shown;
  for (const StudyLayout::Column& column : layout.columns) {
    if (column.shown) shown.push_back(column.column);
  }
  return shown;
}

void StudyColumns::SortBy(int column) {
  descending_ = column == sortedBy_ && !descending_;
  sortedBy_ = column;
  ShowSorting();
  Q_EMIT Sorted(static_cast<StudyColumn>(sortedBy_), descending_);
}

void StudyColumns::ShowSorting() {
  table_.horizontalHeader()->setSortIndicator(
      sortedBy_, descending_ ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void StudyColumns::FillMenu() {
  QHeaderView* headings = table_.horizontalHeader();
  menu_->clear();
  QMenu* sort = menu_->addMenu(tr("&Sort by"));
  menu_->addSeparator();
  auto* sorting = new QActionGroup(sort);
  const bool isLast = Shown().size() == 1;
  for (int place = 0; place < headings->count(); ++place) {
    const int section = headings->logicalIndex(place);
    const QString heading = headings->model()
                                ->headerData(section, Qt::Horizontal)
                                .toString()
                                .replace(QLatin1Char('&'), QLatin1String("&&"));
    QAction* by = sort->addAction(heading, this, [this, section] { SortBy(section); });
    by->setCheckable(true);
    by->setChecked(section == sortedBy_);
    sorting->addAction(by);
    QAction* shown = menu_->addAction(heading);
    shown->setCheckable(true);
    shown->setChecked(!headings->isSectionHidden(section));
    shown->setEnabled(!isLast || !shown->isChecked());  // something has to be shown
    connect(shown, &QAction::toggled, headings,
            [headings, section](bool show) { headings->setSectionHidden(section, !show); });
  }
}

}  // namespace orvex
