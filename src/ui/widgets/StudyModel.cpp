#include "ui/widgets/StudyModel.h"

#include <QTextDocument>
#include <utility>

#include "model/wording.h"
#include "ui/text.h"

namespace orvex {
namespace {

QVariant AlignmentOf(const StudyModel::Column& column) {
  return QVariant::fromValue((column.isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

/// A tooltip that breaks its lines; none for an empty text.
QVariant ToolTip(const QString& text) {
  return text.isEmpty() ? QVariant() : Qt::convertFromPlainText(text);
}

}  // namespace

StudyModel::StudyModel(std::vector<Column> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

void StudyModel::Refill() {
  beginResetModel();
  endResetModel();
}

int StudyModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(Count());
}

int StudyModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant StudyModel::data(const QModelIndex& index, int role) const {
  // The view may draw a row once more before it learns that the row has gone.
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const auto column = static_cast<std::size_t>(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(Shortened(Cell(row, column)));
    case Qt::ToolTipRole:
      return ToolTip(ToQt(Shortened(Cell(row, column))));
    case Qt::TextAlignmentRole:
      return AlignmentOf(columns_[column]);
    default:
      return {};
  }
}

QVariant StudyModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const Column& column = columns_.at(static_cast<std::size_t>(section));
  switch (role) {
    case Qt::DisplayRole:
      return column.heading;
    case Qt::ToolTipRole:
      return ToolTip(column.explanation);
    case Qt::TextAlignmentRole:
      return AlignmentOf(column);
    default:
      return {};
  }
}

}  // namespace orvex
