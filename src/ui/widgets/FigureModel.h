#pragma once

#include "agreement/figure_grid.h"
#include "ui/widgets/StudyModel.h"

namespace orvex {

/// The rows of a table of figures.
class FigureModel : public StudyModel {
  Q_OBJECT

 public:
  /// Shows `table`, which outlives the model and keeps its columns. Refill it when its rows change.
  explicit FigureModel(const FigureGrid& table, QObject* parent = nullptr);

  std::string KeyOf(std::size_t row) const override { return table_.rows[row].key; }
  std::optional<std::size_t> RowOf(const std::string& key) const override {
    return table_.Find(key);
  }

 protected:
  std::size_t Count() const override { return table_.rows.size(); }
  std::string Cell(std::size_t row, std::size_t column) const override {
    return table_.rows[row].cells[column].text;
  }

 private:
  const FigureGrid& table_;
};

}  // namespace orvex
