#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "agreement/code_table.h"
#include "agreement/question_pairs.h"
#include "model/dimensions.h"
#include "reports/asked_question.h"

namespace orvex {

/// A dimension in which the questions of two observers are compared: one that is coded by letters,
/// or whether the question is a normal one.
struct ComparedDimension {
  std::string_view name;   ///< "cognitive_level", as in tables
  std::string_view label;  ///< "Cognitive level"
  std::string_view letters;
  std::optional<Dimension> dimension;  ///< nothing for "normal"

  /// The position of the question's letter among `letters`; nothing where it was left out.
  std::optional<std::size_t> CodeOf(const questionInfo& question) const;
};
/// The eight dimensions that are coded by letters, in their order, then "normal".
const std::vector<ComparedDimension>& ComparedDimensions();

/// How two observers coded the questions that both wrote down, in one of ComparedDimensions().
struct CodeAgreement {
  const ComparedDimension* compared = nullptr;
  CodeTable table{0};  ///< of the questions that both coded
  int leftOut = 0;     ///< that exactly one of the two coded
  int neither = 0;

  CodeAgreement& operator+=(const CodeAgreement& other);
};
/// Compares the codes of the questions of `pairs`, which are positions in the two lists. In the
/// order of ComparedDimensions().
std::vector<CodeAgreement> CompareCodes(const std::vector<AskedQuestion>& first,
                                        const std::vector<AskedQuestion>& second,
                                        const QuestionPairs& pairs);

/// Of the questions for which both observers gave a name of who answered: how many gave the same,
/// letters' case and blanks aside.
struct RespondentAgreement {
  int both = 0;
  int same = 0;
};
/// Compares who answered the questions of `pairs`, which are positions in the two lists.
RespondentAgreement CompareRespondents(const std::vector<AskedQuestion>& first,
                                       const std::vector<AskedQuestion>& second,
                                       const QuestionPairs& pairs);
/// True when both questions name the same who answered.
bool SameRespondent(const questionInfo& first, const questionInfo& second);

}  // namespace orvex
