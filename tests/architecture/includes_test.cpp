#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;

/// The folders of the house, and the folders each may include from besides itself.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"model", {}},
    {"store", {"model"}},
    {"start", {"store", "model"}},
    {"observe", {"store", "model"}},
    {"questions", {"observe", "store", "model"}},
    {"ui", {"questions", "observe", "start", "store", "model"}},
    {"app", {"ui", "questions", "observe", "start", "store", "model"}},
};

/// The folder that a line includes from; "" when it includes none of ours.
std::string IncludedFolder(const std::string& line) {
  constexpr std::string_view kInclude = "#include \"";
  const std::size_t slash = line.find('/');
  if (!line.starts_with(kInclude) || slash == std::string::npos) return "";
  return line.substr(kInclude.size(), slash - kInclude.size());
}

TEST(Architecture, IncludesGoDownwardOnly) {
  int seen = 0;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(ORVEX_SOURCE_DIR) / "src")) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    const std::string folder = entry.path().parent_path().filename().string();
    ASSERT_TRUE(kMayInclude.contains(folder)) << folder << " is not a folder of the house";
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      const std::string from = IncludedFolder(line);
      if (from.empty()) continue;
      ++seen;
      EXPECT_TRUE(from == folder || kMayInclude.at(folder).contains(from))
          << entry.path() << ": " << line;
    }
  }
  EXPECT_GT(seen, 100);
}

}  // namespace
