#include "agreement/question_likeness.h"

#include <algorithm>
#include <cmath>
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

/// Compares the wordings of two lists.
class Comparer {
 public:
  Comparer(const Wordings& first, const Wordings& second) : first_(first), second_(second) {
    std::map<std::u32string, std::size_t> counts;
    CountWordings(first, counts);
    CountWordings(second, counts);
    const std::size_t all = first.wordings.size() + second.wordings.size();
    firstWeights_ = WeightsOf(first, counts, all);
    secondWeights_ = WeightsOf(second, counts, all);
    wordingsWith_.resize(second.vocabulary.size());
    for (std::size_t i = 0; i < second.wordings.size(); ++i) {
      for (const std::size_t word : second.wordings[i]) {
        if (wordingsWith_[word].empty() || wordingsWith_[word].back() != i) {
          wordingsWith_[word].push_back(i);
        }
      }
    }
    for (const std::u32string& word : first.vocabulary) {
      std::vector<LikeWord>& like = like_.emplace_back();
      for (std::size_t other = 0; other < second.vocabulary.size(); ++other) {
        const double likeness = WordLikeness(word, second.vocabulary[other]);
        if (likeness > 0) like.push_back({other, likeness});
      }
    }
  }

  /// The second's wordings that are like one of the first's, in their order.
  std::vector<LikeQuestion> LikeTo(std::size_t wording) {
    std::vector<LikeQuestion> like;
    for (const std::size_t other : WithALikeWord(first_.wordings[wording])) {
      const double evidence = Evidence(first_.wordings[wording], second_.wordings[other]);
      if (evidence > 0) like.push_back({other, evidence});
    }
    return like;
  }

 private:
  std::set<std::size_t> WithALikeWord(const Words& words) const {
    std::set<std::size_t> wordings;
    for (const std::size_t word : words) {
      for (const LikeWord& like : like_[word]) {
        wordings.insert(wordingsWith_[like.word].begin(), wordingsWith_[like.word].end());
      }
    }
    return wordings;
  }

  double Likeness(std::size_t word, std::size_t other) const {
    const auto like = std::ranges::lower_bound(like_[word], other, std::less(), &LikeWord::word);
    return like != like_[word].end() && like->word == other ? like->likeness : 0;
  }

  double Evidence(const Words& words, const Words& others) {
    // The words are paired in their order so that the likeness of the pairs weighs most. A pair
    // weighs what the commoner of the two does: a rare spelling of a common word says little.
    struct Matched {
      double alike = 0;
      double first = 0;  ///< the weights of the words that were paired
      double second = 0;
    };
    std::vector<Matched> last(others.size() + 1);
    std::vector<Matched> row(others.size() + 1);
    for (const std::size_t word : words) {
      std::swap(last, row);
      for (std::size_t j = 0; j < others.size(); ++j) {
        row[j + 1] = last[j + 1].alike >= row[j].alike ? last[j + 1] : row[j];
        const double likeness = Likeness(word, others[j]);
        if (likeness <= 0) continue;
        const double firstWeight = firstWeights_[word];
        const double secondWeight = secondWeights_[others[j]];
        const double alike = likeness * std::min(firstWeight, secondWeight);
        if (last[j].alike + alike > row[j + 1].alike) {
          row[j + 1] = {last[j].alike + alike, last[j].first + firstWeight,
                        last[j].second + secondWeight};
        }
      }
    }
    const Matched& matched = row.back();
    if (matched.alike <= 0) return 0;
    const auto weigh = [](const Words& of, const std::vector<double>& weights) {
      return std::transform_reduce(of.begin(), of.end(), 0.0, std::plus(),
                                   [&](std::size_t word) { return weights[word]; });
    };
    const double onlyFirst = std::max(0.0, weigh(words, firstWeights_) - matched.first);
    const double onlySecond = std::max(0.0, weigh(others, secondWeights_) - matched.second);
    const auto [less, more] = std::minmax(onlyFirst, onlySecond);
    // What one left out is likely to be a shortening; what both have of their own speaks for two
    // questions.
    constexpr double kCostOfOwnWords = 1;
    constexpr double kCostOfShortening = 0.2;
    const double share =
        matched.alike / (matched.alike + kCostOfOwnWords * less + kCostOfShortening * more);
    constexpr double kLeastShare = 0.2;
    return (share - kLeastShare) / (1 - kLeastShare);
  }

  const Wordings& first_;
  const Wordings& second_;
  std::vector<double> firstWeights_;
  std::vector<double> secondWeights_;
  std::vector<std::vector<std::size_t>> wordingsWith_;
  std::vector<std::vector<LikeWord>> like_;
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
