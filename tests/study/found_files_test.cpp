#include "study/found_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "store/file_error.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

void Touch(const fs::path& file) {
  fs::create_directories(file.parent_path());
  std::ofstream(file) << "x";
}

TEST(FoundFiles, ComeInTheOrderOfTheNumbersUnderOneNameForEachObservation) {
  const test::TestFolder folder;
  for (const char* file :
       {"EPS/5/12/5-12-10.eps", "EPS/5/12/5-12-9.EPS", "EPS/5/2/5-2-1.eps", "SUR/5/12/5-12-9.sur",
        "BAK/5/12/5-12-9.bak", "EPS/5/12/notes.txt", "EPS/5/12/5-12-9.eps.observed", "4-1-1.eps",
        "4-1-1.sur", "site/eps/7/1/7-1-1.eps"}) {
    Touch(folder / file);
  }
  Touch(folder / "BAK/5/2/5-2-1.recovery");
  Touch(folder / "BAK/5/2/5-2-1.recovery.17");
  Touch(folder / "EPS/5/2/5-2-1.eps.recovery");  // the changes of an edited file
  fs::create_symlink(folder / "4-1-1.eps", folder / "3-1-1.eps");
  fs::create_symlink(folder / "EPS", folder / "linked");
  fs::create_symlink(folder / "gone.eps", folder / "2-1-1.eps");
  std::vector<std::string> found;
  for (const FoundFile& file : FindFiles(folder.Path()).files) {
    found.push_back(file.name + " " +
                    fs::path(file.path).lexically_relative(folder.Path()).string());
  }
  EXPECT_EQ(found, (std::vector<std::string>{
                       "3-1-1 3-1-1.eps", "4-1-1 4-1-1.eps", "4-1-1 4-1-1.sur",
                       "5/2/5-2-1 EPS/5/2/5-2-1.eps", "5/2/5-2-1 BAK/5/2/5-2-1.recovery",
                       "5/12/5-12-9 EPS/5/12/5-12-9.EPS", "5/12/5-12-9 SUR/5/12/5-12-9.sur",
                       "5/12/5-12-9 BAK/5/12/5-12-9.bak", "5/12/5-12-10 EPS/5/12/5-12-10.eps",
                       "site/7/1/7-1-1 site/eps/7/1/7-1-1.eps"}));
  EXPECT_THROW(FindFiles(folder / "missing"), FileError);
}

TEST(FoundFiles, CompanionsLieBesideAFileOrInTheTreeOfTheirKind) {
  const test::TestFolder folder;
  for (const char* file : {"EPS/5/12/5-12-9.eps", "BAK/5/12/5-12-9.bak", "SUR/5/12/5-12-9.SUR",
                           "4-1-1.eps", "4-1-1.NTE", "4-1-1.Sur"}) {
    Touch(folder / file);
  }
  const fs::path inTree = folder / "EPS/5/12/5-12-9.eps";
  EXPECT_EQ(Companion(inTree, FileKind::sessionLog), folder / "BAK/5/12/5-12-9.bak");
  EXPECT_EQ(Companion(folder / "EPS/./5/12/5-12-9.eps", FileKind::sessionLog),
            folder / "BAK/5/12/5-12-9.bak");
  EXPECT_EQ(Companion(inTree, FileKind::survey), folder / "SUR/5/12/5-12-9.SUR");
  EXPECT_EQ(Companion(inTree, FileKind::fieldNotes), "");
  EXPECT_EQ(Companion(folder / "SUR/5/12/5-12-9.SUR", FileKind::episodes), inTree);
  EXPECT_EQ(Companion(folder / "4-1-1.eps", FileKind::fieldNotes), folder / "4-1-1.NTE");
  EXPECT_EQ(Companion(folder / "4-1-1.eps", FileKind::survey), folder / "4-1-1.Sur");
  EXPECT_EQ(KindOf("4-1-1.Sur"), FileKind::survey);
  EXPECT_EQ(Companion(folder / "4-1-1.eps", FileKind::sessionLog), "");
}

}  // namespace
}  // namespace orvex
