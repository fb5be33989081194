#include "reports/equal_texts.h"

#include <algorithm>
#include <span>

namespace orvex {
namespace {

using Part = std::span<const std::string_view>;

/// A way through two lists goes past texts that only one of them has, a step each, and past texts
/// that both have, which costs nothing. Its diagonal is how much further it has come in the first
/// list than in the second.
class FewestSteps {
 public:
  FewestSteps(Part first, Part second) : first_(first), second_(second) {}

  /// The texts in common on a way with the fewest steps, from the last to the first; none when
  /// there are too many steps to try.
  std::vector<EqualText> EqualTexts() {
    constexpr int kMostSteps = 3000;
    for (int steps = 0; steps <= kMostSteps; ++steps) {
      if (TryWith(steps)) return EqualTextsOn(steps);
    }
    return {};
  }

 private:
  static constexpr int kNowhere = -1;

  /// Where in the first list a way comes to a diagonal with its last step, and from which diagonal.
  struct Arrival {
    int place = kNowhere;
    int from = 0;
  };

  int FirstSize() const { return static_cast<int>(first_.size()); }
  int SecondSize() const { return static_cast<int>(second_.size()); }
  bool AreEqual(int first, int second) const {
    return first_[static_cast<std::size_t>(first)] == second_[static_cast<std::size_t>(second)];
  }

  /// The position of a diagonal among those that so many steps reach.
  static std::size_t PositionOf(int steps, int diagonal) {
    const int position = steps + diagonal;
    return static_cast<std::size_t>(position);
  }

  int Furthest(int steps, int diagonal) const {
    const bool isThere = diagonal >= -steps && diagonal <= steps;
    return isThere ? furthest_[static_cast<std::size_t>(steps)][PositionOf(steps, diagonal)]
                   : kNowhere;
  }

  Arrival ArrivalAt(int steps, int diagonal) const {
    if (steps == 0) return {.place = 0};
    Arrival arrival;
    const int past = Furthest(steps - 1, diagonal - 1);
    if (past != kNowhere && past < FirstSize()) arrival = {past + 1, diagonal - 1};
    const int beside = Furthest(steps - 1, diagonal + 1);
    if (beside > arrival.place && beside - diagonal <= SecondSize()) {
      arrival = {beside, diagonal + 1};
    }
    return arrival;
  }

  /// Finds how far so many steps lead on each diagonal. True when they lead to both ends.
  bool TryWith(int steps) {
    std::vector<int> reached(static_cast<std::size_t>(2 * steps + 1), kNowhere);
    for (int diagonal = -steps; diagonal <= steps; diagonal += 2) {
      int first = ArrivalAt(steps, diagonal).place;
      if (first == kNowhere) continue;
      while (first < FirstSize() && first - diagonal < SecondSize() &&
             AreEqual(first, first - diagonal)) {
        ++first;
      }
      reached[PositionOf(steps, diagonal)] = first;
    }
    furthest_.push_back(std::move(reached));
    return Furthest(steps, FirstSize() - SecondSize()) == FirstSize();
  }

  std::vector<EqualText> EqualTextsOn(int steps) const {
    std::vector<EqualText> equal;
    int diagonal = FirstSize() - SecondSize();
    for (; steps >= 0; --steps) {
      const Arrival arrival = ArrivalAt(steps, diagonal);
      for (int first = Furthest(steps, diagonal); first-- > arrival.place;) {
        equal.push_back(
            {static_cast<std::size_t>(first), static_cast<std::size_t>(first - diagonal)});
      }
      diagonal = arrival.from;
    }
    return equal;
  }

  Part first_;
  Part second_;
  std::vector<std::vector<int>> furthest_;  ///< by steps and diagonal
};

}  // namespace

std::vector<EqualText> EqualTextsInOrder(const Texts& first, const Texts& second) {
  const auto shared =
      static_cast<std::size_t>(std::ranges::mismatch(first, second).in1 - first.begin());
  const std::size_t most = std::min(first.size(), second.size()) - shared;
  std::size_t end = 0;
  while (end < most && first[first.size() - 1 - end] == second[second.size() - 1 - end]) ++end;

  std::vector<EqualText> equal;
  equal.reserve(shared + most);
  for (std::size_t i = 0; i < shared; ++i) equal.push_back({i, i});
  const auto middleOf = [&](const Texts& texts) {
    return Part(texts).subspan(shared, texts.size() - shared - end);
  };
  const auto between = FewestSteps(middleOf(first), middleOf(second)).EqualTexts();
  for (auto text = between.rbegin(); text != between.rend(); ++text) {
    equal.push_back({text->first + shared, text->second + shared});
  }
  for (std::size_t i = end; i-- > 0;) {
    equal.push_back({first.size() - 1 - i, second.size() - 1 - i});
  }
  return equal;
}

}  // namespace orvex
