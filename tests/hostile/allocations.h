#pragma once

#include <cstddef>

namespace orvex::test {

/// How many bytes this program has ever asked for.
std::size_t AllocatedBytes();

}  // namespace orvex::test
