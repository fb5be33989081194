#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace orvex {

using Texts = std::vector<std::string_view>;

/// A text that two lists have in common, by its position in each.
struct EqualText {
  std::size_t first = 0;
  std::size_t second = 0;
};

/// The most texts that two lists have in common in the order of both. Lists that differ in
/// thousands of texts have in common only what they begin and end with.
std::vector<EqualText> EqualTextsInOrder(const Texts& first, const Texts& second);

}  // namespace orvex
