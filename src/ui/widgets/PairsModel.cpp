#include "ui/widgets/PairsModel.h"

#include <QFont>
#include <QVariantList>
#include <algorithm>

#include "agreement/comparison.h"
#include "agreement/observer_name.h"
#include "agreement/row_text.h"
#include "model/wording.h"
#include "ui/text.h"

namespace orvex {
namespace {

/// The number of a question as keys have it; "" for none.
std::string NumberText(std::optional<std::size_t> number) {
  return number ? std::to_string(*number) : "";
}

std::vector<StudyModel::Column> ColumnsFor(const Comparison& comparison) {
  const Agreement& agreement = comparison.Result();
  const QString first = ToQt(NameOfObserver(agreement, Side::first));
  const QString second = ToQt(NameOfObserver(agreement, Side::second));
  QString dimensions = PairsModel::tr("The letters of each dimension, in this order:");
  for (const ComparedDimension& compared : ComparedDimensions()) {
    if (compared.dimension) dimensions += QLatin1Char('\n') + ToQt(compared.label);
  }
  return {
      {.heading = {}, .explanation = PairsModel::tr("What the two do not agree on"), .width = 19},
      {.heading = PairsModel::tr("Time"),
       .explanation = PairsModel::tr("Minutes and seconds from the begin of the first class"),
       .isNumber = true,
       .width = 7},
      {.heading = first, .explanation = PairsModel::tr("As %1 wrote it").arg(first), .width = 34},
      {.heading = PairsModel::tr("Codes"), .explanation = dimensions, .width = 16},
      {.heading = second, .explanation = PairsModel::tr("As %1 wrote it").arg(second), .width = 34},
      {.heading = PairsModel::tr("Codes"), .explanation = dimensions, .width = 16},
      {.heading = PairsModel::tr("Difference"),
       .explanation = PairsModel::tr("The dimensions that they coded differently"),
       .width = 30},
  };
}

/// The letters of all dimensions, "-" where there is none.
std::string CodesText(const AskedQuestion* asked) {
  std::string codes;
  if (!asked) return codes;
  for (const Dimension dimension : kLetteredDimensions) {
    const std::string_view letter = asked->question->Text(dimension);
    codes += (codes.empty() ? "" : " ") + (letter.empty() ? "-" : std::string(letter));
  }
  return codes;
}

}  // namespace

PairsModel::PairsModel(const Comparison& comparison, QObject* parent)
    : StudyModel(ColumnsFor(comparison), parent), comparison_(comparison) {}

std::string PairsModel::KeyOf(std::size_t row) const {
  const QuestionPair& pair = comparison_.Rows()[shown_[row]].pair;
  return NumberText(pair.first) + "," + NumberText(pair.second);
}

std::optional<std::size_t> PairsModel::RowOf(const std::string& key) const {
  for (std::size_t row = 0; row < shown_.size(); ++row) {
    if (KeyOf(row) == key) return row;
  }
  return std::nullopt;
}

std::string PairsModel::Cell(std::size_t row, std::size_t column) const {
  const PairRow& pair = comparison_.Rows()[shown_[row]];
  const Agreement& agreement = comparison_.Result();
  switch (static_cast<Column>(column)) {
    case mark:
      return comparison_.IsDisagreement(shown_[row], dimension_) ? MarkOf(comparison_, pair) : "";
    case place:
      return FormatMinSec(pair.first ? pair.first->second
                                     : pair.second->second + agreement.offset.seconds);
    case firstText:
      return pair.first ? pair.first->question->question : "";
    case firstCodes:
      return CodesText(pair.first);
    case secondText:
      return pair.second ? pair.second->question->question : "";
    case secondCodes:
      return CodesText(pair.second);
    case differs:
      return DifferenceText(pair);
  }
  return "";
}

QVariant PairsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const std::size_t position = shown_[static_cast<std::size_t>(index.row())];
  const PairRow& pair = comparison_.Rows()[position];
  if (role == kDifferingRole) {
    QVariantList positions;
    if (!pair.pair.IsOfBoth()) return positions;
    for (const std::size_t differing : pair.differing) positions << static_cast<int>(differing);
    return positions;
  }
  if (role == Qt::FontRole && comparison_.IsDisagreement(position, dimension_) &&
      (index.column() == mark || index.column() == differs)) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return StudyModel::data(index, role);
}

}  // namespace orvex
