#pragma once

#include <QListView>
#include <functional>
#include <string>
#include <vector>

namespace orvex {

/// A list of rows of which several can be selected, counted from 1. What it holds, and what is
/// selected in it, is the logic's to say: it tells what the user does and shows what it is given.
class RowList : public QListView {
  Q_OBJECT

 public:
  explicit RowList(QWidget* parent = nullptr);
  ~RowList() override;

  /// Shows `rows` with those that are selected. The row at `current` has the keyboard and is
  /// marked as the one whose details are shown; 0 leaves the keyboard where it is.
  void ShowRows(const std::vector<std::string>& rows, const std::vector<int>& selected,
                int current);
  /// Rows for which `isFaint` holds are shown as on their way out.
  void ShowFaint(const std::function<bool(int)>& isFaint);
  /// Marks the row that something would be dropped on; 0 for none.
  void ShowDropTarget(int row);

  std::vector<int> SelectedRows() const;
  /// The row that has the keyboard; 0 without one.
  int CurrentRow() const { return currentIndex().row() + 1; }
  /// The row at a position on the screen; 0 where there is none.
  int RowAt(const QPoint& globalPosition) const;

 Q_SIGNALS:
  /// The user went to a row, by mouse or keyboard.
  void Chosen(int row);
  /// The user has changed what is selected, and may be about to choose a row by it.
  void SelectionMade();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  class Rows;

  void ShowCurrent(int current);
  void ShowSelected(const std::vector<int>& selected);

  Rows* rows_;
  int dropTarget_ = 0;
  bool follows_ = false;  // it is being set, not chosen from
};

}  // namespace orvex
