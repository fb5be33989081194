#include "agreement/question_likeness.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <numeric>
#include <set>
#include <utility>

#include "agreement/question_words.h"

namespace orvex {
namespace {

using Words = std::vector<std::size_t>;  ///< by their positions in a vocabulary

/// The distinct wordings of a list of questions, and their distinct words.
struct Wordings {
  std::vector<std::u32string> vocabulary;
  std::vector<Words> wordings;
  std::vector<std::size_t> ofQuestion;  ///< the position of each question's wording

  explicit Wordings(const std::vector<std::string>& questions) {
    std::map<std::u32string, std::size_t> wordPositions;
    std::map<Words, std::size_t> wordingPositions;
    for (const std::string& question : questions) {
      Words wording;
      for (std::u32string& word : QuestionWords(question)) {
        const auto [place, isNew] = wordPositions.try_emplace(word, vocabulary.size());
        if (isNew) vocabulary.push_back(std::move(word));
        wording.push_back(place->second);
      }
      const auto [place, isNew] = wordingPositions.try_emplace(wording, wordings.size());
      if (isNew) wordings.push_back(std::move(wording));
      ofQuestion.push_back(place->second);
    }
  }
};

/// Adds one for each word of each wording.
void CountWordings(const Wordings& of, std::map<std::u32string, std::size_t>& counts) {
  for (const Words& wording : of.wordings) {
    for (const std::size_t word : std::set<std::size_t>(wording.begin(), wording.end())) {
      ++counts[of.vocabulary[word]];
    }
  }
}

/// What each word of a vocabulary says: the more, the fewer questions have it.
std::vector<double> WeightsOf(const Wordings& of,
                              const std::map<std::u32string, std::size_t>& counts,
                              std::size_t wordings) {
  std::vector<double> weights;
  for (const std::u32string& word : of.vocabulary) {
    weights.push_back(
        std::log1p(static_cast<double>(wordings) / static_cast<double>(counts.find(word)->second)));
  }
  return weights;
}

/// A word of the second's that is like one of the first's.
struct LikeWord {
  std::size_t word = 0;
  double likeness = 0;
};

/// What the words of one question have in common with those of another, in
/// weights.
struct Common {
  double alike = 0;   ///< how much alike the words are that were paired
  double first = 0;   ///< of the first question, the words that were paired
  double second = 0;  ///< of the second
};

/// How much is alike of all there is, from 0 to 1. What one left out is likely
/// to be a shortening; what both have of their own speaks for two questions.
double ShareAlike(const Common& common, double first, double second) {
  constexpr double kCostOfOwnWords = 0.75;
  constexpr double kCostOfShortening = 0.25;
  const auto [less, more] =
      std::minmax({std::max(0.0, first - common.first), std::max(0.0, second - common.second)});
  return common.alike / (common.alike + kCostOfOwnWords * less + kCostOfShortening * more);
}
/// With less than this they are not the same question.
constexpr double kLeastShare = 1.0 / 3;

/// Compares the wordings of two lists.
class Comparer {
 public:
  Comparer(const Wordings& first, const Wordings& second)
      : first_(first),
        second_(second),
        likeness_(kMostQuestionWords, std::vector<double>(second.vocabulary.size())),
        likeTo_(second.vocabulary.size()) {
    std::map<std::u32string, std::size_t> counts;
    CountWordings(first, counts);
    CountWordings(second, counts);
    const std::size_t all = first.wordings.size() + second.wordings.size();
    firstWeights_ = WeightsOf(first, counts, all);
    secondWeights_ = WeightsOf(second, counts, all);
    for (const Words& wording : second.wordings) {
      secondSums_.push_back(SumOf(wording, secondWeights_));
    }
    const std::vector<ComparedWord> others(second.vocabulary.begin(), second.vocabulary.end());
    for (const std::u32string& text : first.vocabulary) {
      const ComparedWord word(text);
      std::vector<LikeWord>& like = like_.emplace_back();
      for (std::size_t other = 0; other < others.size(); ++other) {
        const double likeness = word.LikenessTo(others[other]);
        if (likeness > 0) like.push_back({other, likeness});
      }
    }
  }

  /// The second's wordings that are like one of the first's, in their order.
  std::vector<LikeQuestion> LikeTo(std::size_t wording) {
    const Words& words = first_.wordings[wording];
    const double sum = SumOf(words, firstWeights_);
    std::vector<LikeQuestion> like;
    Mark(words);
    for (std::size_t i = 0; i < second_.wordings.size(); ++i) {
      const Words& others = second_.wordings[i];
      if (ShareAlike(MostInCommon(words, others), sum, secondSums_[i]) <= kLeastShare) continue;
      const double share = ShareAlike(InCommon(words, others), sum, secondSums_[i]);
      if (share > kLeastShare) like.push_back({i, (share - kLeastShare) / (1 - kLeastShare)});
    }
    Unmark(words);
    return like;
  }

 private:
  static double SumOf(const Words& words, const std::vector<double>& weights) {
    return std::transform_reduce(words.begin(), words.end(), 0.0, std::plus(),
                                 [&](std::size_t word) { return weights[word]; });
  }

  /// Notes which of the second's words are like which of `words`.
  void Mark(const Words& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      for (const LikeWord& like : like_[words[i]]) {
        likeness_[i][like.word] = like.likeness;
        likeTo_[like.word] |= std::uint64_t{1} << i;
      }
    }
  }
  void Unmark(const Words& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      for (const LikeWord& like : like_[words[i]]) likeness_[i][like.word] = 0;
      for (const LikeWord& like : like_[words[i]]) likeTo_[like.word] = 0;
    }
  }

  /// What the marked words and others have in common at most. Quick to find
  /// out, which spares most questions the closer look.
  Common MostInCommon(const Words& words, const Words& others) const {
    Common most;
    std::uint64_t found = 0;
    for (const std::size_t other : others) {
      if (likeTo_[other] == 0) continue;
      found |= likeTo_[other];
      most.second += secondWeights_[other];
    }
    for (; found != 0; found &= found - 1) {
      most.first += firstWeights_[words[static_cast<std::size_t>(std::countr_zero(found))]];
    }
    most.alike = std::min(most.first, most.second);
    return most;
  }

  /// Pairs the marked words with others, in their order, so that they are most
  /// alike. A pair weighs what the commoner of the two does: a rare spelling of
  /// a common word says little.
  Common InCommon(const Words& words, const Words& others) {
    last_.assign(others.size() + 1, {});
    row_.assign(others.size() + 1, {});
    for (std::size_t i = 0; i < words.size(); ++i) {
      std::swap(last_, row_);
      const double weight = firstWeights_[words[i]];
      for (std::size_t j = 0; j < others.size(); ++j) {
        Common& best = row_[j + 1];
        best = last_[j + 1].alike >= row_[j].alike ? last_[j + 1] : row_[j];
        const double likeness = likeness_[i][others[j]];
        if (likeness == 0) continue;
        const double otherWeight = secondWeights_[others[j]];
        const Common& before = last_[j];
        const double alike = before.alike + likeness * std::min(weight, otherWeight);
        if (alike > best.alike) best = {alike, before.first + weight, before.second + otherWeight};
      }
    }
    return row_.back();
  }

  const Wordings& first_;
  const Wordings& second_;
  std::vector<double> firstWeights_;  ///< of the words of the vocabulary
  std::vector<double> secondWeights_;
  std::vector<double> secondSums_;           ///< of the weights of each of the second's wordings
  std::vector<std::vector<LikeWord>> like_;  ///< to each word of the first's vocabulary
  // What is marked, by word of the second's vocabulary: how much it is like
  // each of the words, and a bit for each of those that it is like.
  std::vector<std::vector<double>> likeness_;
  std::vector<std::uint64_t> likeTo_;
  // Two rows of a table, kept for the next.
  std::vector<Common> last_;
  std::vector<Common> row_;
};

}  // namespace

QuestionLikeness::QuestionLikeness(const std::vector<std::string>& first,
                                   const std::vector<std::string>& second) {
  Wordings firstWordings(first);
  const Wordings secondWordings(second);
  Comparer comparer(firstWordings, secondWordings);
  for (std::size_t i = 0; i < firstWordings.wordings.size(); ++i) {
    like_.push_back(comparer.LikeTo(i));
  }
  wordingOf_ = std::move(firstWordings.ofQuestion);
  secondsOf_.resize(secondWordings.wordings.size());
  for (std::size_t j = 0; j < second.size(); ++j) {
    secondsOf_[secondWordings.ofQuestion[j]].push_back(j);
  }
}

std::vector<LikeQuestion> QuestionLikeness::Of(std::size_t first) const {
  std::vector<LikeQuestion> questions;
  for (const LikeQuestion& wording : like_[wordingOf_[first]]) {
    for (const std::size_t second : secondsOf_[wording.position]) {
      questions.push_back({second, wording.evidence});
    }
  }
  std::ranges::sort(questions, std::less(), &LikeQuestion::position);
  return questions;
}

}  // namespace orvex
