#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvex {

class Comparison;

/// A question that two observers coded otherwise, or that only one of them wrote down.
struct Disagreement {
  struct Question {
    std::size_t inClass = 0;  ///< counted from 1
    int episode = 0;          ///< counted from 1
    int inEpisode = 0;        ///< counted from 1
    std::string text;
  };
  /// A dimension in which they differ: its name, and both letters, "" where it was left out.
  struct Code {
    std::string_view dimension;
    std::string_view first;
    std::string_view second;
  };
  std::optional<Question> first;
  std::optional<Question> second;
  std::vector<Code> codes;  ///< none for a question of one observer
};
/// The disagreements of a comparison, in the order of the class.
std::vector<Disagreement> DisagreementsOf(const Comparison& comparison);

}  // namespace orvex
