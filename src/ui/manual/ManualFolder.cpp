#include "ui/manual/ManualFolder.h"

#include <system_error>

namespace orvex {

namespace fs = std::filesystem;

namespace {

constexpr int kMostLevels = 5;  // build/release/bin, and deeper

bool HasManual(const fs::path& folder) {
  std::error_code unreadable;
  return fs::is_regular_file(folder / "index.md", unreadable);
}

}  // namespace

fs::path ManualFolder(const fs::path& executableFolder) {
  const fs::path installed = executableFolder.parent_path() / "share/doc/orvex/manual";
  if (HasManual(installed)) return installed;
  fs::path above = executableFolder;
  for (int level = 0; level < kMostLevels; ++level) {
    above = above.parent_path();
    if (HasManual(above / "docs/manual")) return above / "docs/manual";
  }
  return {};
}

}  // namespace orvex
