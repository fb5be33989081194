#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "support/test_paths.h"

namespace {

namespace fs = std::filesystem;

/// The folders of src, and the other folders that each may include from.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"model", {}},
    {"store", {"model"}},
    {"desk", {"store", "model"}},
    {"running", {"desk", "store", "model"}},
    {"recovery", {"running", "desk", "store", "model"}},
    {"survey", {"recovery", "desk", "store", "model"}},
    {"start", {"survey", "recovery", "desk", "store", "model"}},
    {"observe", {"running", "recovery", "desk", "store", "model"}},
    {"questions", {"observe", "running", "start", "desk", "store", "model"}},
    {"editor", {"questions", "recovery", "desk", "store", "model"}},
    {"reports", {"store", "model"}},
    {"tables", {"reports", "desk", "store", "model"}},
    {"commands", {"tables", "reports", "store", "model"}},
    {"ui",
     {"editor", "tables", "reports", "questions", "observe", "running", "start", "survey",
      "recovery", "desk", "store", "model"}},
    {"app", {"ui", "commands", "tables", "recovery", "start", "desk", "store", "model"}},
};

/// The folder that `line` includes from; "" unless it is one of ours.
std::string IncludedFolder(std::string_view line) {
  const auto skip = [&line](std::string_view what) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(what)) return false;
    line.remove_prefix(what.size());
    return true;
  };
  if (!skip("#") || !skip("include") || !skip("")) return "";
  const bool quoted = line.starts_with('"');
  const std::size_t slash = line.find('/');
  if ((!quoted && !line.starts_with('<')) || slash == std::string_view::npos) return "";
  const std::string folder(line.substr(1, slash - 1));
  // A name in angle brackets may belong to the system; a quoted one is always ours.
  return quoted || kMayInclude.contains(folder) ? folder : "";
}

TEST(Architecture, IncludesAreSeenHoweverTheyAreWritten) {
  const std::pair<const char*, const char*> cases[] = {
      {"#include \"store/paths.h\"", "store"},
      {"# include <store/paths.h>", "store"},
      {"  #include\t<ui/frmClassAct.h>", "ui"},
      {"#include \"nowhere/at_all.h\"", "nowhere"},
      {"#include <sys/stat.h>", ""},
      {"#include <string>", ""},
      {"// see #include \"store/paths.h\"", ""},
  };
  for (const auto& [line, folder] : cases) EXPECT_EQ(IncludedFolder(line), folder) << line;
}

TEST(Architecture, IncludesGoDownwardOnly) {
  int seen = 0;
  for (const auto& entry : fs::recursive_directory_iterator(orvex::test::SourceFolder() / "src")) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    // Subfolders belong to their top folder: ui/forms/frmQA.cpp is part of ui.
    const fs::path inside = fs::relative(entry.path(), orvex::test::SourceFolder() / "src");
    const std::string folder = inside.begin()->string();
    ASSERT_TRUE(kMayInclude.contains(folder)) << folder << " is not a room of the house";
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
