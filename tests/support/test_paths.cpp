#include "support/test_paths.h"

namespace orvex::test {

std::filesystem::path SourceFolder() {
  return ORVEX_SOURCE_DIR;
}

std::filesystem::path TestDataFolder() {
  return SourceFolder() / "tests" / "data";
}

}  // namespace orvex::test
