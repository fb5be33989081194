#include "ui/forms/FiguresPage.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <algorithm>

#include "ui/text.h"
#include "ui/widgets/StudyTable.h"

namespace orvex {

FiguresPage::FiguresPage(StudyTable& table, ComparedStudy& study, StudyFigures which)
    : QObject(&table), table_(table), study_(study), which_(which), rows_(study.Table(which)) {
  table.Show(rows_);
  table.FitColumns();
  QHeaderView* headings = table.horizontalHeader();
  headings->setStretchLastSection(which == StudyFigures::pairs);
  headings->setSectionsClickable(true);
  connect(headings, &QHeaderView::sectionClicked, this, &FiguresPage::SortBy);
  const auto add = [&](const QString& caption, const QKeySequence& key, auto work) {
    auto* action = new QAction(caption, this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, work);
    table.addAction(action);
  };
  add(tr("&Copy Rows"), QKeySequence::Copy, [this] { Copy(); });
  add(tr("&Sort by This Column"), Qt::CTRL | Qt::Key_B,
      [this] { SortBy(std::max(0, table_.currentIndex().column())); });
  table.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void FiguresPage::Change(const std::function<void()>& change) {
  const StudyTable::Place place = table_.PlaceNow();
  change();
  table_.Refill(place);
}

/// A second time sorts the other way round.
void FiguresPage::SortBy(int column) {
  descending_ = column == sortedBy_ && !descending_;
  sortedBy_ = column;
  QHeaderView* headings = table_.horizontalHeader();
  headings->setSortIndicatorShown(true);
  headings->setSortIndicator(column, descending_ ? Qt::DescendingOrder : Qt::AscendingOrder);
  Change([this] { study_.SortBy(which_, static_cast<std::size_t>(sortedBy_), descending_); });
}

void FiguresPage::Copy() const {
  const auto rows = table_.SelectedRows();
  const FigureGrid& table = study_.Table(which_);
  QGuiApplication::clipboard()->setText(ToQt(rows.empty() ? table.TextOf() : table.TextOf(rows)));
}

}  // namespace orvex
