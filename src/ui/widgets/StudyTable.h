#pragma once

#include <QTableView>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "ui/widgets/StudyModel.h"

namespace orvex {

/// A table of many rows, of which whole ones are selected. All rows are equally high, so that half
/// a million scroll like ten.
class StudyTable : public QTableView {
  Q_OBJECT

 public:
  explicit StudyTable(QWidget* parent = nullptr);

  /// Shows `rows`, which outlive the table.
  void Show(StudyModel& rows);

  /// Which rows are current, selected and in sight, by their keys.
  struct Place {
    std::optional<std::string> current;
    int row = 0;     ///< the current row
    int column = 0;  ///< the current column
    int above = 0;   ///< how many rows are in sight above the current one
    std::vector<std::string> selected;
    std::optional<std::string> top;  ///< the first row in sight, if the current row is not in sight
  };
  Place PlaceNow() const;
  /// Shows the rows anew, with the same ones current, selected and in sight, as far as they are
  /// still there. If the current row has gone, the one in its place is current and selected; at
  /// first it is the first one.
  void Refill(const Place& place);

  /// The current row; nothing if there is none.
  std::optional<std::size_t> CurrentRow() const;
  /// Makes `row` the current and the only selected one, and shows it.
  void GoTo(std::size_t row);
  /// Gives the table the focus; if no row is current, the first one becomes so.
  void FocusRows();
  /// The selected rows, from top to bottom.
  std::vector<std::size_t> SelectedRows() const;
  /// Gives each column its usual width.
  void FitColumns();

  /// Typing selects nothing: a search through all rows could take long.
  void keyboardSearch(const QString& /*search*/) override {}

 Q_SIGNALS:
  /// The current row was double-clicked.
  void Opened();
  /// The current row may be another, or hold something else.
  void CurrentMoved();
  void SelectionMade();

 protected:
  void showEvent(QShowEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void FitRows();
  int RowsInSight() const;
  std::optional<int> RowOf(const std::optional<std::string>& key) const;
  void Select(const std::vector<std::string>& keys);
  void ShowPlace(const Place& place);

  StudyModel* rows_ = nullptr;
  bool isRefilling_ = false;
};

}  // namespace orvex
