#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/test_paths.h"

namespace {

namespace fs = std::filesystem;

/// For each folder of src, the other folders that it may include from.
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
    {"study", {"reports", "recovery", "desk", "store", "model"}},
    {"agreement", {"study", "reports", "recovery", "desk", "store", "model"}},
    {"tables", {"agreement", "study", "reports", "desk", "store", "model"}},
    {"commands", {"agreement", "study", "tables", "reports", "store", "model"}},
    {"ui",
     {"editor", "study", "agreement", "tables", "reports", "questions", "observe", "running",
      "start", "survey", "recovery", "desk", "store", "model"}},
    {"app",
     {"ui", "commands", "study", "agreement", "tables", "recovery", "start", "desk", "store",
      "model"}},
};

/// The folder that `line` includes from; "" if it is not one of ours.
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

/// The type that a line forward-declares; "" for any other line.
std::string DeclaredType(std::string_view line) {
  for (const std::string_view keyword : {"class ", "struct "}) {
    if (!line.starts_with(keyword) || !line.ends_with(';')) continue;
    line.remove_prefix(keyword.size());
    line.remove_suffix(1);
    return line.find_first_of(" :<") == std::string_view::npos ? std::string(line) : "";
  }
  return "";
}

/// All source files, each with its top folder in src: "ui" for ui/forms/frmQA.cpp.
std::vector<std::pair<fs::path, std::string>> Sources() {
  std::vector<std::pair<fs::path, std::string>> sources;
  const fs::path root = orvex::test::SourceFolder() / "src";
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    sources.emplace_back(entry.path(), fs::relative(entry.path(), root).begin()->string());
  }
  return sources;
}

/// The type that a line defines, "" for none: Date for "struct Date : Day {".
std::string DefinedType(std::string_view line) {
  for (const std::string_view keyword : {"class ", "struct "}) {
    if (!line.starts_with(keyword) || !line.ends_with('{')) continue;
    line.remove_prefix(keyword.size());
    return std::string(line.substr(0, line.find_first_of(" :")));
  }
  return "";
}

TEST(Architecture, DeclarationsGoDownwardOnly) {
  // The desk only passes these on, so it may forward-declare them.
  const std::set<std::string> handedOn = {"RecoveryFile", "RunningClass"};
  std::map<std::string, std::string> rooms;
  const auto eachLine = [](const fs::path& path, auto take) {
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) take(line);
  };
  for (const auto& [path, room] : Sources()) {
    if (path.extension() != ".h") continue;
    eachLine(path, [&, &room = room](const std::string& line) {
      if (const std::string type = DefinedType(line); !type.empty()) rooms[type] = room;
    });
  }
  EXPECT_EQ(rooms["Clock"], "model");
  int seen = 0;
  for (const auto& [path, room] : Sources()) {
    eachLine(path, [&, &path = path, &room = room](const std::string& line) {
      const auto of = rooms.find(DeclaredType(line));
      if (of == rooms.end()) return;
      ++seen;
      const bool isAllowed = of->second == room || kMayInclude.at(room).contains(of->second) ||
                             (room == "desk" && handedOn.contains(of->first));
      EXPECT_TRUE(isAllowed) << path << ": " << line;
    });
  }
  EXPECT_GT(seen, 20);
}

TEST(Architecture, IncludesGoDownwardOnly) {
  int seen = 0;
  for (const auto& [path, folder] : Sources()) {
    ASSERT_TRUE(kMayInclude.contains(folder)) << folder << " is not a room of the house";
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      const std::string from = IncludedFolder(line);
      if (from.empty()) continue;
      ++seen;
      EXPECT_TRUE(from == folder || kMayInclude.at(folder).contains(from)) << path << ": " << line;
    }
  }
  EXPECT_GT(seen, 100);
}

}  // namespace
