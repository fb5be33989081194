#pragma once

#include <cstdint>
#include <string_view>

namespace orvex {

/// A number that tells contents apart: no change of a single byte goes unseen.
std::uint64_t Checksum(std::string_view bytes);

}  // namespace orvex
