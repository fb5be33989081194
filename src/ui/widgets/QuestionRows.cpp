#include "ui/widgets/QuestionRows.h"

#include <QTextDocument>

#include "model/wording.h"
#include "questions/question_editor.h"
#include "ui/text.h"

namespace orvex {

QuestionRows::QuestionRows(const QuestionEditor& editor, QObject* parent)
    : QAbstractListModel(parent), editor_(editor), count_(editor.QuestionCount()) {}

int QuestionRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count_;
}

QVariant QuestionRows::data(const QModelIndex& index, int role) const {
  // The view may draw a dropped row once more before it learns of the change.
  if (!index.isValid() || index.row() >= editor_.QuestionCount()) return {};
  if (role == Qt::DisplayRole) return ToQt(Shortened(editor_.RowText(index.row() + 1)));
  if (role == Qt::ToolTipRole) {
    return Qt::convertFromPlainText(ToQt(Shortened(editor_.QuestionText(index.row() + 1))));
  }
  return {};
}

void QuestionRows::Refresh() {
  // It does not matter which rows are new, because all of them are read again.
  const int count = editor_.QuestionCount();
  if (count > count_) {
    beginInsertRows({}, count_, count - 1);
    count_ = count;
    endInsertRows();
  } else if (count < count_) {
    beginRemoveRows({}, count, count_ - 1);
    count_ = count;
    endRemoveRows();
  }
  if (count_ > 0) Q_EMIT dataChanged(index(0), index(count_ - 1));
}

}  // namespace orvex
