#pragma once

#include <cstdint>
#include <string_view>

namespace orvex {

/// A checksum of `bytes`. It always detects a change of a single byte.
std::uint64_t Checksum(std::string_view bytes);

}  // namespace orvex
