#pragma once

#include "ui/widgets/StudyModel.h"

namespace orvex {

class Study;

/// The observations of a study, in the columns of kStudyColumns.
class ObservationsModel : public StudyModel {
  Q_OBJECT

 public:
  explicit ObservationsModel(QObject* parent = nullptr);

  /// Shows the observations of `study`; null for none. Refill it then.
  void Show(const Study* study) { study_ = study; }

  std::string KeyOf(std::size_t row) const override;
  std::optional<std::size_t> RowOf(const std::string& key) const override;

 protected:
  std::size_t Count() const override;
  std::string Cell(std::size_t row, std::size_t column) const override;

 private:
  const Study* study_ = nullptr;
};

}  // namespace orvex
