#pragma once

#include <QListView>
#include <functional>
#include <string>
#include <vector>

namespace orvex {

/// A list of rows, counted from 1, of which several can be selected. The logic decides what the
/// list holds and what is selected; the list only reports what the user does and shows what it is
/// given.
class RowList : public QListView {
  Q_OBJECT

 public:
  explicit RowList(QWidget* parent = nullptr);
  ~RowList() override;

  /// Shows `rows` and selects some of them. The row at `current` gets the keyboard and is marked as
  /// the one with its details shown; 0 leaves the keyboard where it is.
  void ShowRows(const std::vector<std::string>& rows, const std::vector<int>& selected,
                int current);
  /// Shows the rows for which `isFaint` holds as about to leave the list.
  void ShowFaint(const std::function<bool(int)>& isFaint);
  /// Marks the row that a drop would go to; 0 for none.
  void ShowDropTarget(int row);

  std::vector<int> SelectedRows() const;
  /// The row with the keyboard; 0 for none.
  int CurrentRow() const { return currentIndex().row() + 1; }
  /// The row at a position on the screen; 0 when there is none.
  int RowAt(const QPoint& globalPosition) const;

 Q_SIGNALS:
  /// The user moved to a row by mouse or keyboard.
  void Chosen(int row);
  /// The user changed the selection. `Chosen` may follow for the same action.
  void SelectionMade();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  class Rows;

  void ShowCurrent(int current);
  void ShowSelected(const std::vector<int>& selected);

  Rows* rows_;
  int dropTarget_ = 0;
  bool follows_ = false;  // the list is being set; do not report it as a choice
};

}  // namespace orvex
