#include <cstddef>
#include <cstdint>

#include "fuzz/checks.h"

/// Called with one made-up file after the other. ORVEX_CHECK is the program's check.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvex::fuzz::ORVEX_CHECK({reinterpret_cast<const char*>(data), size});
  return 0;
}
