#pragma once

#include <QObject>
#include <vector>

#include "study/study_layout.h"

class QMenu;

namespace orvex {

class StudyTable;

/// The columns of the table of observations: which are shown, in which order and how wide, and by
/// which one the rows are sorted. The user changes that at the headings or in a menu.
class StudyColumns : public QObject {
  Q_OBJECT

 public:
  explicit StudyColumns(StudyTable& table);

  /// Arranges the table.
  void Arrange(const StudyLayout& layout);
  /// Puts the table's present arrangement into `layout`.
  void Store(StudyLayout& layout) const;
  /// The columns that are shown, in their order.
  std::vector<StudyColumn> Shown() const;
  /// The menu for all of this. It is up to date when it opens.
  QMenu* Menu() const { return menu_; }
  /// Sorts by `column` or, if the rows are sorted by it already, the other way round.
  void SortBy(int column);

 Q_SIGNALS:
  /// The user wants the rows sorted in another way.
  void Sorted(StudyColumn column, bool descending);

 private:
  void FillMenu();
  void ShowSorting();

  StudyTable& table_;
  QMenu* menu_;
  int sortedBy_ = 0;
  bool descending_ = false;
};

}  // namespace orvex
