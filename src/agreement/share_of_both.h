#pragma once

#include <cstddef>
#include <optional>

namespace orvex {

/// Twice what both observers have, of all that the first and the second have: 1 where they have the
/// same. Nothing when there is nothing.
inline std::optional<double> ShareOfBoth(std::size_t both, std::size_t first, std::size_t second) {
  if (first + second == 0) return std::nullopt;
  return 2 * static_cast<double>(both) / static_cast<double>(first + second);
}

}  // namespace orvex
