#include "store/checksum.h"

namespace orvex {

std::uint64_t Checksum(std::string_view bytes) {
  // FNV-1a. Each step is reversible, so a change of one byte always changes the sum.
  std::uint64_t sum = 0xcbf29ce484222325U;
  for (const char byte : bytes) {
    sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
  }
  return sum;
}

}  // namespace orvex
