#pragma once

#include <QAbstractListModel>

namespace orvex {

class QuestionEditor;

/// The rows of the question list, read from the editor when they are drawn: however long the list
/// is, a key press costs no more than the rows in sight.
class QuestionRows : public QAbstractListModel {
  Q_OBJECT

 public:
  QuestionRows(const QuestionEditor& editor, QObject* parent);

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  /// Lets the list follow the editor.
  void Refresh();

 private:
  const QuestionEditor& editor_;
  int count_;
};

}  // namespace orvex
