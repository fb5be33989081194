#pragma once

#include <QAbstractListModel>

namespace orvex {

class QuestionEditor;

/// The rows of the question list. They are read from the editor when drawn, so that in a list of
/// any length a key press costs no more than the visible rows.
class QuestionRows : public QAbstractListModel {
  Q_OBJECT

 public:
  QuestionRows(const QuestionEditor& editor, QObject* parent);

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  /// Updates the list after a change in the editor.
  void Refresh();

 private:
  const QuestionEditor& editor_;
  int count_;
};

}  // namespace orvex
