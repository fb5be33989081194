#pragma once

#include <QGroupBox>
#include <QStringList>
#include <vector>

class QGridLayout;

namespace orvex {

/// A box with a few named figures. The first column says what they are, the others stand on the
/// right.
class FigureTable : public QGroupBox {
  Q_OBJECT

 public:
  explicit FigureTable(QWidget* parent = nullptr);

  /// Shows `rows`, below the headings of the columns if there are any.
  void Show(const QStringList& headings, const std::vector<QStringList>& rows);

 private:
  QGridLayout* grid_;
};

}  // namespace orvex
