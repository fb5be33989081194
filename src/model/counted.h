#pragma once

#include <cstddef>
#include <string>

namespace orvex {

/// What a count counts: "1 file", "2 files".
inline std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace orvex
