#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace orvex {

/// The rows of a StudyTable. They are read when drawn, so that only the visible ones cost anything.
/// Each has a key that stays the same while the row moves.
class StudyModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  struct Column {
    QString heading;
    QString explanation;    ///< shown when the mouse rests on the heading
    bool isNumber = false;  ///< stands on the right
    int width = 0;          ///< in characters; 0: as the heading needs
  };

  explicit StudyModel(std::vector<Column> columns, QObject* parent = nullptr);

  const std::vector<Column>& Columns() const { return columns_; }
  virtual std::string KeyOf(std::size_t row) const = 0;
  /// Where the row with this key is now; nothing if it is not among those shown.
  virtual std::optional<std::size_t> RowOf(const std::string& key) const = 0;

  /// To be called when the rows may be others.
  void Refill();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 protected:
  virtual std::size_t Count() const = 0;
  virtual std::string Cell(std::size_t row, std::size_t column) const = 0;

 private:
  const std::vector<Column> columns_;
};

}  // namespace orvex
