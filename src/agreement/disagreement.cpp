#include "agreement/disagreement.h"

#include "agreement/comparison.h"

namespace orvex {
namespace {

std::optional<Disagreement::Question> QuestionOf(const AskedQuestion* asked,
                                                 std::optional<std::size_t> inClass) {
  if (asked == nullptr || !inClass) return std::nullopt;
  return Disagreement::Question{*inClass + 1, asked->episode, asked->number,
                                asked->question->question};
}

}  // namespace

std::vector<Disagreement> DisagreementsOf(const Comparison& comparison) {
  std::vector<Disagreement> disagreements;
  for (const PairRow& row : comparison.Rows()) {
    if (!row.IsDisagreement()) continue;
    Disagreement& disagreement = disagreements.emplace_back(Disagreement{
        QuestionOf(row.first, row.pair.first), QuestionOf(row.second, row.pair.second), {}});
    for (const std::size_t differing : row.differing) {
      const ComparedDimension& compared = ComparedDimensions()[differing];
      if (!compared.dimension) continue;
      disagreement.codes.push_back({compared.name, row.first->question->Text(*compared.dimension),
                                    row.second->question->Text(*compared.dimension)});
    }
  }
  return disagreements;
}

}  // namespace orvex
