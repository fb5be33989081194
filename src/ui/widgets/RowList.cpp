#include "ui/widgets/RowList.h"

#include <QAbstractListModel>
#include <QItemSelectionModel>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <algorithm>
#include <utility>

#include "ui/text.h"

namespace orvex {

/// The model: the texts of the rows, and how each one looks.
class RowList::Rows : public QAbstractListModel {
 public:
  explicit Rows(RowList* list) : QAbstractListModel(list), list_(list) {}

  int rowCount(const QModelIndex& parent = QModelIndex()) const override {
    return parent.isValid() ? 0 : static_cast<int>(texts_.size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || index.row() >= texts_.size()) return {};
    const bool isFaint = faint_.contains(index.row() + 1);
    switch (role) {
      case Qt::DisplayRole:
        return texts_[index.row()];
      case Qt::ToolTipRole:
        return Qt::convertFromPlainText(texts_[index.row()]);
      case Qt::FontRole: {
        QFont font = list_->font();
        font.setBold(index.row() + 1 == marked_);
        font.setItalic(isFaint);
        return font;
      }
      case Qt::ForegroundRole:
        if (isFaint) return list_->palette().brush(QPalette::Disabled, QPalette::Text);
        return {};
      default:
        return {};
    }
  }

  void SetTexts(const std::vector<std::string>& texts) {
    const int count = static_cast<int>(texts.size());
    const int before = rowCount();
    // It does not matter which rows are new, because all that differ are read again.
    if (count < before) {
      beginRemoveRows({}, count, before - 1);
      texts_.resize(count);
      endRemoveRows();
    } else if (count > before) {
      beginInsertRows({}, before, count - 1);
      texts_.resize(count);
      endInsertRows();
    }
    for (int row = 0; row < count; ++row) {
      QString text = ToQt(texts[static_cast<std::size_t>(row)]);
      if (texts_[row] == text) continue;
      texts_[row] = std::move(text);
      Q_EMIT dataChanged(index(row), index(row));
    }
  }

  void Mark(int row) {
    if (row == marked_) return;
    const int before = std::exchange(marked_, row);
    for (const int changed : {before, marked_}) {
      if (changed >= 1 && changed <= rowCount()) {
        Q_EMIT dataChanged(index(changed - 1), index(changed - 1));
      }
    }
  }

  void SetFaint(QList<int> rows) {
    if (rows == faint_) return;
    faint_ = std::move(rows);
    if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
  }

 private:
  const RowList* list_;
  QStringList texts_;
  QList<int> faint_;
  int marked_ = 0;
};

namespace {

/// Keeps the text of a faint row faint while the row is selected.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.data(Qt::ForegroundRole).isValid()) return;
    QColor text = option->palette.color(QPalette::HighlightedText);
    text.setAlphaF(0.6F);
    option->palette.setColor(QPalette::HighlightedText, text);
  }
};

}  // namespace

RowList::RowList(QWidget* parent) : QListView(parent), rows_(new Rows(this)) {
  setModel(rows_);
  setItemDelegate(new RowDelegate(this));
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& row) {
            if (!follows_ && row.isValid()) Q_EMIT Chosen(row.row() + 1);
          });
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (!follows_) Q_EMIT SelectionMade();
  });
}

RowList::~RowList() = default;

void RowList::ShowRows(const std::vector<std::string>& rows, const std::vector<int>& selected,
                       int current) {
  const QScopedValueRollback follows(follows_, true);
  rows_->SetTexts(rows);
  rows_->Mark(current);
  if (current > 0) ShowCurrent(current);
  ShowSelected(selected);
}

void RowList::ShowCurrent(int current) {
  const QModelIndex index = rows_->index(current - 1);
  // Set it through the view, so that Shift and an arrow key extend the selection from there.
  if (index.isValid() && index != currentIndex()) setCurrentIndex(index);
}

void RowList::ShowSelected(const std::vector<int>& selected) {
  if (SelectedRows() == selected) return;
  QItemSelection selection;
  for (const int row : selected) {
    const QModelIndex index = rows_->index(row - 1);
    selection.append(QItemSelectionRange(index, index));
  }
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void RowList::ShowFaint(const std::function<bool(int)>& isFaint) {
  QList<int> faint;
  for (int row = 1; row <= rows_->rowCount(); ++row) {
    if (isFaint(row)) faint.append(row);
  }
  rows_->SetFaint(std::move(faint));
}

void RowList::ShowDropTarget(int row) {
  if (row == dropTarget_) return;
  dropTarget_ = row;
  viewport()->update();
}

std::vector<int> RowList::SelectedRows() const {
  std::vector<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
    rows.push_back(index.row() + 1);
  }
  std::ranges::sort(rows);
  return rows;
}

int RowList::RowAt(const QPoint& globalPosition) const {
  const QPoint position = viewport()->mapFromGlobal(globalPosition);
  if (!viewport()->rect().contains(position)) return 0;
  return indexAt(position).row() + 1;
}

void RowList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (dropTarget_ == 0) return;
  QPainter painter(viewport());
  QColor colour = palette().color(QPalette::Highlight);
  constexpr int kLine = 2;
  painter.setPen(QPen(colour, kLine));
  colour.setAlphaF(0.25F);
  painter.setBrush(colour);
  painter.drawRect(visualRect(rows_->index(dropTarget_ - 1)).adjusted(1, 1, -1, -1));
}

}  // namespace orvex
