#include "agreement/code_agreement.h"

#include <algorithm>
#include <string>

#include "study/folded_text.h"

namespace orvex {
namespace {

/// The name of who answered without blanks and with its letters in lower case.
std::string RespondentOf(const questionInfo& question) {
  std::string name = Folded(question.strRspnName());
  std::erase(name, ' ');
  return name;
}

/// Calls `act` with the questions of each pair that is of both.
template <typename Act>
void ForPairsOfBoth(const std::vector<AskedQuestion>& first,
                    const std::vector<AskedQuestion>& second, const QuestionPairs& pairs,
                    const Act& act) {
  for (const QuestionPair& pair : pairs) {
    if (pair.IsOfBoth()) act(*first[*pair.first].question, *second[*pair.second].question);
  }
}

}  // namespace

std::optional<std::size_t> ComparedDimension::CodeOf(const questionInfo& question) const {
  const std::string_view letter =
      dimension ? question.Text(*dimension) : letters.substr(question.IsNormal() ? 0 : 1, 1);
  if (letter.empty()) return std::nullopt;
  return letters.find(letter);
}

const std::vector<ComparedDimension>& ComparedDimensions() {
  static const std::vector<ComparedDimension> kCompared = [] {
    std::vector<ComparedDimension> compared;
    for (const Dimension dimension : kLetteredDimensions) {
      const DimensionScheme& scheme = SchemeOf(dimension);
      compared.push_back({scheme.variable, scheme.tableLabel, scheme.letters, dimension});
    }
    compared.push_back({"normal", "Normal question", "YN", std::nullopt});
    return compared;
  }();
  return kCompared;
}

CodeAgreement& CodeAgreement::operator+=(const CodeAgreement& other) {
  table += other.table;
  leftOut += other.leftOut;
  neither += other.neither;
  return *this;
}

std::vector<CodeAgreement> CompareCodes(const std::vector<AskedQuestion>& first,
                                        const std::vector<AskedQuestion>& second,
                                        const QuestionPairs& pairs) {
  std::vector<CodeAgreement> agreements;
  for (const ComparedDimension& compared : ComparedDimensions()) {
    CodeAgreement& agreement =
        agreements.emplace_back(CodeAgreement{&compared, CodeTable(compared.letters.size())});
    ForPairsOfBoth(first, second, pairs, [&](const questionInfo& a, const questionInfo& b) {
      const auto ofFirst = compared.CodeOf(a);
      const auto ofSecond = compared.CodeOf(b);
      if (ofFirst && ofSecond) {
        agreement.table.Add(*ofFirst, *ofSecond);
      } else {
        ++(ofFirst || ofSecond ? agreement.leftOut : agreement.neither);
      }
    });
  }
  return agreements;
}

RespondentAgreement CompareRespondents(const std::vector<AskedQuestion>& first,
                                       const std::vector<AskedQuestion>& second,
                                       const QuestionPairs& pairs) {
  RespondentAgreement agreement;
  ForPairsOfBoth(first, second, pairs, [&](const questionInfo& a, const questionInfo& b) {
    if (RespondentOf(a).empty() || RespondentOf(b).empty()) return;
    ++agreement.both;
    agreement.same += SameRespondent(a, b) ? 1 : 0;
  });
  return agreement;
}

bool SameRespondent(const questionInfo& first, const questionInfo& second) {
  const std::string name = RespondentOf(first);
  return !name.empty() && name == RespondentOf(second);
}

}  // namespace orvex
