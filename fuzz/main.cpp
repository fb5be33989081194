#include <cstddef>
#include <cstdint>

#include "fuzz/checks.h"

/// The fuzzer calls this with one made-up file after another. ORVEX_CHECK is the program's check.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvex::fuzz::ORVEX_CHECK({reinterpret_cast<const char*>(data), size});
  return 0;
}
