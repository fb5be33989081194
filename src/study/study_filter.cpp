#include "study/study_filter.h"

#include <algorithm>

#include "store/numbers.h"
#include "study/study_columns.h"

namespace orvex {

std::string SearchedText(const StudyRow& row) {
  std::string text = row.name;
  for (const StudyColumnScheme& scheme : kStudyColumns) {
    text += '\n';
    text += CellOf(row, scheme.column);
  }
  return Folded(text);
}

StudyFilterTest::StudyFilterTest(const StudyFilter& filter)
    : filter_(filter), words_(WordsOf(filter.text)) {
  filter_.initials = Folded(WithoutBlanks(filter.initials));
}

bool StudyFilterTest::Passes(const StudyRow& row, const std::string& searched) const {
  if (filter_.notFullyCoded && !(row.summary && row.summary->notFullyCoded > 0)) return false;
  if (filter_.noSurvey && row.openStatements) return false;
  if (filter_.problems && row.problems.empty()) return false;
  if (filter_.mine && Folded(WithoutBlanks(row.identity.Initials)) != filter_.initials) {
    return false;
  }
  return std::ranges::all_of(
      words_, [&](const Word& word) { return searched.find(word.text) != std::string::npos; });
}

}  // namespace orvex
