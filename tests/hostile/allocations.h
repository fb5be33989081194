#pragma once

#include <cstddef>

namespace orvex::test {

/// The number of bytes that this program has allocated in total.
std::size_t AllocatedBytes();

}  // namespace orvex::test
