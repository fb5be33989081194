#include "agreement/question_pairs.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "agreement/question_likeness.h"
#include "agreement/question_words.h"

namespace orvex {
namespace {

/// What a pair adds to an alignment. Whole numbers, so that sums do not depend on their order.
using Gain = std::int32_t;
constexpr double kGainOfEqualTexts = 10000;
/// The most that a pair loses because its questions were asked at different times, as a share of
/// what equal texts gain: places decide between texts that are about as much alike.
constexpr double kMostLossOfDistance = 0.3;
/// The distance, in seconds, that costs half of it.
constexpr double kHalvingDistance = 60;

/// The second's question for each of the first's.
using Partners = std::vector<std::optional<std::size_t>>;

/// How many seconds lie between two questions.
double Distance(const AskedQuestion& first, const AskedQuestion& second, double offset) {
  return std::abs(first.second - (second.second + offset));
}

/// A question of the second observer that could be the partner of one of the first's.
struct Candidate {
  std::size_t second = 0;
  Gain gain = 0;
};
/// For each of the first's questions, in the order of the second's.
using Candidates = std::vector<std::vector<Candidate>>;

std::vector<std::string> TextsOf(std::span<const AskedQuestion> questions) {
  std::vector<std::string> texts;
  texts.reserve(questions.size());
  for (const AskedQuestion& asked : questions) texts.push_back(asked.question->question);
  return texts;
}

// Only the words and the place make a pair. The codes and the name of who answered may not: pairs
// that were sought by equal codes would agree on them.
Candidates CandidatesOf(std::span<const AskedQuestion> first, std::span<const AskedQuestion> second,
                        double offset) {
  const QuestionLikeness likeness(TextsOf(first), TextsOf(second));
  Candidates candidates(first.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    for (const LikeQuestion& like : likeness.Of(i)) {
      const double distance = Distance(first[i], second[like.position], offset);
      const double loss = kMostLossOfDistance * distance / (distance + kHalvingDistance);
      const double gain = kGainOfEqualTexts * (like.evidence - loss);
      if (gain >= 1) candidates[i].push_back({like.position, static_cast<Gain>(gain)});
    }
  }
  return candidates;
}

/// The most that can be gained by pairing the questions from one of the first's and one of the
/// second's on.
class Gains {
 public:
  Gains(const Candidates& candidates, std::size_t secondCount)
      : width_(secondCount + 1), gains_((candidates.size() + 1) * width_) {
    for (std::size_t i = candidates.size(); i-- > 0;) {
      auto candidate = candidates[i].rbegin();
      for (std::size_t j = secondCount; j-- > 0;) {
        Gain& best = gains_[i * width_ + j];
        best = std::max(At(i + 1, j), At(i, j + 1));
        if (candidate == candidates[i].rend() || candidate->second != j) continue;
        best = std::max(best, At(i + 1, j + 1) + candidate->gain);
        ++candidate;
      }
    }
  }
  Gain At(std::size_t first, std::size_t second) const { return gains_[first * width_ + second]; }

 private:
  std::size_t width_;
  std::vector<Gain> gains_;
};

/// The second's question for each of the first's, so that most is gained.
Partners BestPartners(std::span<const AskedQuestion> first, std::span<const AskedQuestion> second,
                      double offset) {
  const Candidates candidates = CandidatesOf(first, second, offset);
  const Gains gains(candidates, second.size());
  Partners partners(first.size());
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < first.size() && j < second.size()) {
    const Gain best = gains.At(i, j);
    const auto candidate =
        std::ranges::lower_bound(candidates[i], j, std::less(), &Candidate::second);
    const bool canPair = candidate != candidates[i].end() && candidate->second == j;
    if (canPair && gains.At(i + 1, j + 1) + candidate->gain == best) {
      partners[i++] = j++;
      continue;
    }
    const bool skipsFirst = gains.At(i + 1, j) == best;
    const bool skipsSecond = gains.At(i, j + 1) == best;
    // Where either way is as good, the texts decide: then it does not matter who is called first.
    const bool both = skipsFirst && skipsSecond;
    if (both ? first[i].question->question < second[j].question->question : skipsFirst) {
      ++i;
    } else {
      ++j;
    }
  }
  return partners;
}

/// Adds the partners of the first's questions. Two lists that are too long for a table of gains,
/// longer than any class asks, are cut at the same time: pairs across the cut are lost.
/// `secondsBefore` is how many of the second's questions stand before these.
void AddPartners(std::span<const AskedQuestion> first, std::span<const AskedQuestion> second,
                 std::size_t secondsBefore, double offset, Partners& partners) {
  constexpr std::size_t kMostCells = 16'000'000;
  if (first.size() < 2 || first.size() * second.size() <= kMostCells) {
    for (const auto partner : BestPartners(first, second, offset)) {
      partners.push_back(partner ? std::optional(secondsBefore + *partner) : std::nullopt);
    }
    return;
  }
  const std::size_t middle = first.size() / 2;
  const auto cut = std::ranges::find_if(second, [&](const AskedQuestion& asked) {
    return asked.second + offset >= first[middle].second;
  });
  const auto before = static_cast<std::size_t>(cut - second.begin());
  AddPartners(first.first(middle), second.first(before), secondsBefore, offset, partners);
  AddPartners(first.subspan(middle), second.subspan(before), secondsBefore + before, offset,
              partners);
}

/// True when so little was written down of a question that it may have no word in common with what
/// another wrote of it: "content of vow".
bool IsNote(const AskedQuestion& asked) {
  constexpr std::size_t kMostWords = 3;
  return QuestionWords(asked.question->question).size() <= kMostWords;
}

/// Where one question of each stands alone between two pairs, both were asked at about the same
/// time and one is a note, they are one question in other words. Two whole sentences without a
/// common word are two questions.
void PairParaphrases(std::span<const AskedQuestion> first, std::span<const AskedQuestion> second,
                     double offset, Partners& partners) {
  constexpr double kSameTime = 60;  // seconds
  const QuestionPairs pairs = PairsFrom(partners, second.size());
  for (std::size_t i = 1; i + 2 < pairs.size(); ++i) {
    const auto one = pairs[i].first;
    const auto other = pairs[i + 1].second;
    const bool areAlone = pairs[i - 1].IsOfBoth() && pairs[i + 2].IsOfBoth() &&
                          !pairs[i].IsOfBoth() && !pairs[i + 1].IsOfBoth();
    if (!areAlone || !one || !other) continue;
    if (!IsNote(first[*one]) && !IsNote(second[*other])) continue;
    if (Distance(first[*one], second[*other], offset) <= kSameTime) partners[*one] = *other;
  }
}

}  // namespace

QuestionPairs PairsFrom(const std::vector<std::optional<std::size_t>>& partners,
                        std::size_t secondCount) {
  QuestionPairs pairs;
  std::size_t second = 0;
  const auto addSecondsUpTo = [&](std::size_t end) {
    for (; second < end; ++second) pairs.push_back({std::nullopt, second});
  };
  for (std::size_t first = 0; first < partners.size(); ++first) {
    if (const auto partner = partners[first]) {
      addSecondsUpTo(*partner);
      ++second;
    }
    pairs.push_back({first, partners[first]});
  }
  addSecondsUpTo(secondCount);
  return pairs;
}

QuestionPairs PairQuestions(std::span<const AskedQuestion> first,
                            std::span<const AskedQuestion> second, double offset) {
  Partners partners;
  AddPartners(first, second, 0, offset, partners);
  PairParaphrases(first, second, offset, partners);
  return PairsFrom(partners, second.size());
}

}  // namespace orvex
