#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "reports/asked_question.h"

namespace orvex {

/// A question that both observers wrote down, or that only one of them did. Questions count through
/// the class from 0.
struct QuestionPair {
  std::optional<std::size_t> first;
  std::optional<std::size_t> second;

  bool operator==(const QuestionPair&) const = default;
  bool IsOfBoth() const { return first && second; }
};

/// All questions of two observers in the order of the class: each stands in exactly one pair, pairs
/// do not cross, and those without a partner stand before the next pair, the first observer's
/// first.
using QuestionPairs = std::vector<QuestionPair>;

/// Makes the pairs of two lists with so many questions out of those that are of both: `partners`
/// holds the second's question for each of the first's. They must not cross.
QuestionPairs PairsFrom(const std::vector<std::optional<std::size_t>>& partners,
                        std::size_t secondCount);

/// Pairs the questions of two observers, without crossing, by what was written down; of equal
/// texts, those that were asked nearer to each other. Questions without a word in common are pairs
/// only where nothing else stands between two pairs of like ones, at the same time. `offset` is how
/// many seconds the second observer began after the first.
QuestionPairs PairQuestions(std::span<const AskedQuestion> first,
                            std::span<const AskedQuestion> second, double offset);

}  // namespace orvex
