#include "ui/widgets/StudyTable.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelection>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionHeader>
#include <algorithm>

#include "ui/show.h"

namespace orvex {
namespace {

constexpr int kLeading = 6;   // between the lines of two rows
constexpr int kPadding = 10;  // around the text of a cell
constexpr int kSortMark = 8;  // beside a heading
constexpr int kDigits = 5;    // that a column of numbers has room for

/// Headings that end with an ellipsis where they are too long for their column.
class Headings : public QHeaderView {
 public:
  using QHeaderView::QHeaderView;

 protected:
  void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
    QHeaderView::initStyleOptionForIndex(option, section);
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, option, this);
    option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight,
                                                  sectionSize(section) - 2 * margin);
  }
};

}  // namespace

StudyTable::StudyTable(QWidget* parent) : QTableView(parent) {
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setHorizontalHeader(new Headings(Qt::Horizontal, this));
}

void StudyTable::Show(StudyModel& rows) {
  rows_ = &rows;
  setModel(&rows);
}

/// Makes all rows as high as a line of text needs.
void StudyTable::FitRows() {
  const int height = fontMetrics().height() + kLeading;
  verticalHeader()->setMinimumSectionSize(height);
  verticalHeader()->setDefaultSectionSize(height);
}

void StudyTable::FitColumns() {
  if (!rows_) return;
  int column = 0;
  for (const StudyModel::Column& scheme : rows_->Columns()) {
    const QFontMetrics metrics = fontMetrics();
    const int character =
        std::max(metrics.averageCharWidth(), metrics.horizontalAdvance(QLatin1Char('0')));
    const int heading = metrics.horizontalAdvance(scheme.heading) + kSortMark + kPadding;
    const int number = scheme.isNumber ? kDigits * character + kPadding : 0;
    const int width =
        scheme.width > 0 ? scheme.width * character + kPadding : std::max(heading, number);
    setColumnWidth(column++, width);
  }
}

void StudyTable::showEvent(QShowEvent* event) {
  FitRows();
  QTableView::showEvent(event);
}

void StudyTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitRows();
}

std::optional<std::size_t> StudyTable::CurrentRow() const {
  const QModelIndex current = currentIndex();
  return current.isValid() ? std::optional(static_cast<std::size_t>(current.row())) : std::nullopt;
}

std::vector<std::size_t> StudyTable::SelectedRows() const {
  std::vector<std::size_t> rows;
  if (!selectionModel()) return rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      rows.push_back(static_cast<std::size_t>(row));
    }
  }
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

int StudyTable::RowsInSight() const {
  return std::max(1, viewport()->height() / std::max(1, verticalHeader()->defaultSectionSize()));
}

StudyTable::Place StudyTable::PlaceNow() const {
  Place place;
  const int top = verticalScrollBar()->value();
  const QModelIndex current = currentIndex();
  if (current.isValid()) {
    place.current = rows_->KeyOf(static_cast<std::size_t>(current.row()));
    place.row = current.row();
    place.column = current.column();
    place.above = current.row() - top;
  }
  for (const std::size_t row : SelectedRows()) place.selected.push_back(rows_->KeyOf(row));
  const bool inSight = place.current && place.above >= 0 && place.above < RowsInSight();
  if (!inSight && top < rows_->rowCount()) place.top = rows_->KeyOf(static_cast<std::size_t>(top));
  return place;
}

/// Where the row with this key is now, as the view counts.
std::optional<int> StudyTable::RowOf(const std::optional<std::string>& key) const {
  const auto row = key ? rows_->RowOf(*key) : std::nullopt;
  return row ? std::optional(static_cast<int>(*row)) : std::nullopt;
}

/// Selects the rows with these keys, as far as they are shown.
void StudyTable::Select(const std::vector<std::string>& keys) {
  std::vector<int> rows;
  for (const std::string& key : keys) {
    if (const auto row = RowOf(key)) rows.push_back(*row);
  }
  std::ranges::sort(rows);
  QItemSelection selection;
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t end = first + 1;
    while (end < rows.size() && rows[end] == rows[end - 1] + 1) ++end;
    selection.append(
        {rows_->index(rows[first], 0), rows_->index(rows[end - 1], rows_->columnCount() - 1)});
    first = end;
  }
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void StudyTable::Refill(const Place& place) {
  isRefilling_ = true;
  rows_->Refill();
  ShowPlace(place);
  isRefilling_ = false;
  Q_EMIT CurrentMoved();
  Q_EMIT SelectionMade();
}

void StudyTable::ShowPlace(const Place& place) {
  const int count = rows_->rowCount();
  if (count == 0) return;
  const auto found = RowOf(place.current);
  const int row = found.value_or(std::min(place.row, count - 1));
  selectionModel()->setCurrentIndex(rows_->index(row, place.column), QItemSelectionModel::NoUpdate);
  Select(place.selected);
  if (!found && selectionModel()->selection().isEmpty()) selectRow(row);
  executeDelayedItemsLayout();  // so that the scroll bar knows how many rows there are
  const auto top = place.top ? RowOf(place.top) : std::optional(row - place.above);
  if (top) verticalScrollBar()->setValue(*top);
}

void StudyTable::GoTo(std::size_t row) {
  const int column = std::max(0, currentIndex().column());
  // Whatever keys are held: with Ctrl, Qt would leave the selection behind.
  selectionModel()->setCurrentIndex(
      rows_->index(static_cast<int>(row), column),
      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(currentIndex());
}

void StudyTable::FocusRows() {
  if (rows_->rowCount() > 0 && !CurrentRow()) GoTo(0);
  FocusVisibly(this);
}

void StudyTable::mouseDoubleClickEvent(QMouseEvent* event) {
  // The rows may have been refilled between the two clicks: the first has made its row current.
  if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid()) Q_EMIT Opened();
}

void StudyTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!isRefilling_) Q_EMIT CurrentMoved();
}

void StudyTable::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!isRefilling_) Q_EMIT SelectionMade();
}

}  // namespace orvex
