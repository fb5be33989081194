#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvex {

/// A question that another could be the same as.
struct LikeQuestion {
  std::size_t position = 0;  ///< in its list
  /// How much the words speak for it: above 0, at most 1, which is what equal
  /// words give.
  double evidence = 0;
};

/// How much alike the questions are that two observers wrote down. Case,
/// accents and punctuation count for nothing; words may be misspelt, cut short
/// or left out; rare words say more than common ones.
class QuestionLikeness {
 public:
  QuestionLikeness(const std::vector<std::string>& first, const std::vector<std::string>& second);

  /// The second's questions that could be the same as one of the first's, in
  /// their order.
  std::vector<LikeQuestion> Of(std::size_t first) const;

 private:
  std::vector<std::vector<LikeQuestion>> like_;      ///< by distinct wording of the first's
  std::vector<std::size_t> wordingOf_;               ///< by question of the first's
  std::vector<std::vector<std::size_t>> secondsOf_;  ///< questions, by distinct wording
};

}  // namespace orvex
