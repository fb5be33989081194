#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "agreement/question_pairs.h"
#include "reports/asked_question.h"

namespace orvex {

/// For each of an observer's questions, where it stands after the file was edited; nothing when it
/// is gone. Known by what was written down, and by its place among the others where that was
/// written anew. Their order is the same.
std::vector<std::optional<std::size_t>> SameQuestions(const std::vector<AskedQuestion>& before,
                                                      const std::vector<AskedQuestion>& after);

/// The questions of two observers after their files were edited: for each that there was, where it
/// stands now, and how many there are now.
struct EditedQuestions {
  std::vector<std::optional<std::size_t>> first;
  std::vector<std::optional<std::size_t>> second;
  std::size_t firstCount = 0;
  std::size_t secondCount = 0;
};
/// The pairs that are left of those made before. New questions have no partner.
QuestionPairs PairsAfter(const QuestionPairs& before, const EditedQuestions& edited);

}  // namespace orvex
