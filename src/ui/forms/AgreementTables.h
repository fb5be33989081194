#pragma once

#include <QObject>
#include <QString>
#include <cstddef>
#include <optional>

#include "ui/widgets/ConfusionModel.h"

namespace Ui {
class frmAgreement;
}

namespace orvex {

class Comparison;

/// A cell of a table of codes.
struct AgreementCell {
  std::optional<std::size_t> dimension;  ///< a position in ComparedDimensions(); else activities
  std::size_t first = 0;
  std::size_t second = 0;
  QString name = {};  ///< "AB: T (Teacher), MN: S (Student)"
};

/// The page of the agreement's form with the tables of codes.
class AgreementTables : public QObject {
  Q_OBJECT

 public:
  /// `comparison` outlives the page.
  AgreementTables(Ui::frmAgreement& ui, const Comparison& comparison, QObject* parent);

  void Refresh();
  /// The current cell; nothing if it is a sum, or empty.
  std::optional<AgreementCell> Current() const;

 Q_SIGNALS:
  /// The user clicked on a cell.
  void CellChosen();

 private:
  std::optional<std::size_t> Dimension() const;
  QString CellText() const;
  void Copy() const;
  void ShowCurrent();

  Ui::frmAgreement& ui_;
  const Comparison& comparison_;
  ConfusionModel table_;
};

}  // namespace orvex
