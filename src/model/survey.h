#pragma once

#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>

#include "model/code.h"

namespace orvex {

inline constexpr int kCheckGroups = 6;
inline constexpr int kMostItems = 19;
inline constexpr int kStatements = 25;
/// Statements 1 to 7 form the instructional scale, the others the student engagement scale.
inline constexpr int kInstructionalStatements = 7;
/// The item of the first group that has a free text: "other:".
inline constexpr std::size_t kOtherItem = 9;

/// An observer's answers about a whole lesson.
struct Survey {
  Survey() { ratings.fill(kUncoded); }
  bool operator==(const Survey&) const = default;

  /// How many statements have no rating, of `count` from `first` on.
  int Open(int first = 0, int count = kStatements) const {
    const auto begin = ratings.begin() + first;
    return static_cast<int>(std::count(begin, begin + count, kUncoded));
  }

  std::array<std::bitset<kMostItems>, kCheckGroups> checks;  ///< by group and item
  std::string other;                                ///< the text of the first group's "other:"
  std::array<std::int16_t, kStatements> ratings{};  ///< the selected button, or kUncoded
};

}  // namespace orvex
