#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <cstddef>
#include <optional>
#include <vector>

#include "agreement/code_table.h"

namespace orvex {

/// How often two observers gave which code, with the sums: the first observer's codes are the rows,
/// the second's the columns.
class ConfusionModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// What is shown of a table.
  struct View {
    CodeTable table{0};
    std::vector<std::size_t> codes;  ///< those that have a row and a column
    QStringList names;               ///< short ones for the columns, by position in `codes`
    QStringList meanings;            ///< longer ones, for the rows
    bool areSeconds = false;         ///< what is counted are seconds
  };
  void Show(View view);

  /// The codes of a cell; nothing for a sum.
  struct Codes {
    std::size_t first = 0;
    std::size_t second = 0;
  };
  std::optional<Codes> CodesAt(const QModelIndex& index) const;
  /// What a cell, or a sum, counts.
  std::int64_t CountAt(const QModelIndex& index) const;
  /// Says what a cell holds, with the observers' names.
  QString TextAt(const QModelIndex& index, const QString& first, const QString& second) const;
  /// The same without the count. `index` is valid.
  QString NameOf(const QModelIndex& index, const QString& first, const QString& second) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString CountText(std::int64_t count) const;
  bool IsSum(int section) const { return section == static_cast<int>(view_.codes.size()); }
  bool IsSum(const QModelIndex& index) const { return IsSum(index.row()) || IsSum(index.column()); }
  std::size_t CodeAt(int section) const { return view_.codes[static_cast<std::size_t>(section)]; }

  View view_;
};

}  // namespace orvex
