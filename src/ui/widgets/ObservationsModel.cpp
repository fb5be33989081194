#include "ui/widgets/ObservationsModel.h"

#include "study/study.h"
#include "ui/text.h"

namespace orvex {
namespace {

/// How many characters a column is wide; 0: as its heading needs.
int WidthOf(StudyColumn column) {
  switch (column) {
    case StudyColumn::date:
      return 10;
    case StudyColumn::start:
    case StudyColumn::survey:
      return 8;
    case StudyColumn::problems:
      return 20;  // and what the others leave
    default:
      return 0;
  }
}

std::vector<StudyModel::Column> MakeColumns() {
  std::vector<StudyModel::Column> columns;
  for (const StudyColumnScheme& column : kStudyColumns) {
    columns.push_back({.heading = ToQt(column.heading),
                       .explanation = ToQt(column.explanation),
                       .isNumber = column.number,
                       .width = WidthOf(column.column)});
  }
  return columns;
}

}  // namespace

ObservationsModel::ObservationsModel(QObject* parent) : StudyModel(MakeColumns(), parent) {}

std::size_t ObservationsModel::Count() const {
  return study_ ? study_->Count() : 0;
}

std::string ObservationsModel::Cell(std::size_t row, std::size_t column) const {
  return CellOf(study_->Row(row), kStudyColumns.at(column).column);
}

std::string ObservationsModel::KeyOf(std::size_t row) const {
  return study_->Row(row).name;
}

std::optional<std::size_t> ObservationsModel::RowOf(const std::string& key) const {
  return study_->Find(key);
}

}  // namespace orvex
