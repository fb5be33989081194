#include "agreement/same_questions.h"

#include <algorithm>
#include <span>

namespace orvex {
namespace {

using Questions = std::vector<AskedQuestion>;

bool IsUnchanged(const AskedQuestion& before, const AskedQuestion& after) {
  return *before.question == *after.question;
}

/// How many questions are the same at the begin and, without these, at the end. An edit usually
/// leaves little between them.
struct Unchanged {
  std::size_t atBegin = 0;
  std::size_t atEnd = 0;
};
Unchanged UnchangedOf(const Questions& before, const Questions& after) {
  const auto begin = std::ranges::mismatch(before, after, IsUnchanged).in1;
  const auto atBegin = static_cast<std::size_t>(begin - before.begin());
  const std::size_t rest = std::min(before.size(), after.size()) - atBegin;
  std::size_t atEnd = 0;
  while (atEnd < rest &&
         IsUnchanged(before[before.size() - 1 - atEnd], after[after.size() - 1 - atEnd])) {
    ++atEnd;
  }
  return {atBegin, atEnd};
}

std::span<const AskedQuestion> Between(const Questions& all, const Unchanged& unchanged) {
  return std::span(all).subspan(unchanged.atBegin,
                                all.size() - unchanged.atBegin - unchanged.atEnd);
}

}  // namespace

std::vector<std::optional<std::size_t>> SameQuestions(const Questions& before,
                                                      const Questions& after) {
  std::vector<std::optional<std::size_t>> same(before.size());
  const Unchanged unchanged = UnchangedOf(before, after);
  for (std::size_t i = 0; i < unchanged.atBegin; ++i) same[i] = i;
  for (std::size_t i = 1; i <= unchanged.atEnd; ++i) same[before.size() - i] = after.size() - i;

  // Between two that are known, as many as there were before are the same ones in other words.
  std::vector<std::size_t> unknown;
  std::vector<std::size_t> fresh;
  const auto settle = [&] {
    for (std::size_t i = 0; unknown.size() == fresh.size() && i < unknown.size(); ++i) {
      same[unknown[i]] = fresh[i];
    }
    unknown.clear();
    fresh.clear();
  };
  for (const QuestionPair& pair :
       PairQuestions(Between(before, unchanged), Between(after, unchanged), 0)) {
    if (pair.IsOfBoth()) {
      settle();
      same[unchanged.atBegin + *pair.first] = unchanged.atBegin + *pair.second;
    } else if (pair.first) {
      unknown.push_back(unchanged.atBegin + *pair.first);
    } else {
      fresh.push_back(unchanged.atBegin + *pair.second);
    }
  }
  settle();
  return same;
}

QuestionPairs PairsAfter(const QuestionPairs& before, const EditedQuestions& edited) {
  std::vector<std::optional<std::size_t>> partners(edited.firstCount);
  for (const QuestionPair& pair : before) {
    if (!pair.IsOfBoth()) continue;
    if (const auto first = edited.first[*pair.first]) {
      partners[*first] = edited.second[*pair.second];
    }
  }
  return PairsFrom(partners, edited.secondCount);
}

}  // namespace orvex
