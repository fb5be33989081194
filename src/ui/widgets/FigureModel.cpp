#include "ui/widgets/FigureModel.h"

#include "ui/text.h"

namespace orvex {
namespace {

std::vector<StudyModel::Column> ColumnsOf(const FigureGrid& table) {
  std::vector<StudyModel::Column> columns;
  for (const FigureGrid::Column& column : table.columns) {
    columns.push_back({.heading = ToQt(column.heading),
                       .explanation = ToQt(column.explanation),
                       .isNumber = column.isNumber,
                       .width = column.width});
  }
  return columns;
}

}  // namespace

FigureModel::FigureModel(const FigureGrid& table, QObject* parent)
    : StudyModel(ColumnsOf(table), parent), table_(table) {}

}  // namespace orvex
