#include "store/paths.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "store/file_error.h"
#include "store/storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

TEST(Paths, NumbersAreNormalisedAndFoldersMade) {
  const test::TestFolder folder;
  Storage storage;
  Identity identity{"AB", "05", " 012", "3.5", "28"};
  EXPECT_EQ(EpsPath(folder.Path(), identity), folder / "EPS/05/ 012/05- 012-3.5.eps");
  for (const Identity& wrong : {Identity{"", "x", "1", "1", ""}, {"", "1", "", "1", ""}}) {
    Identity given = wrong;
    EXPECT_THROW(MakeEpsPath(storage, folder.Path(), given), std::invalid_argument);
    EXPECT_EQ(given, wrong);
  }
  EXPECT_TRUE(fs::is_empty(folder.Path()));

  EXPECT_EQ(MakeEpsPath(storage, folder.Path(), identity), folder / "EPS/5/12/5-12-4.eps");
  EXPECT_EQ(identity, (Identity{"AB", "5", "12", "4", "28"}));
  EXPECT_EQ(MakeNtePath(storage, folder.Path(), identity), folder / "NTE/5/12/5-12-4.nte");
  identity.ClassNum = "013";  // the log is named as typed
  MakeBakFolders(storage, folder.Path(), identity);
  EXPECT_EQ(BakPath(folder.Path(), identity), folder / "BAK/5/013/5-013-4.bak");
  for (const char* made : {"EPS/5/12", "NTE/5/12", "BAK/5/013"}) {
    EXPECT_TRUE(fs::is_directory(folder / made)) << made;
  }
  test::PutFile(folder / "EPS/6", "in the way");
  identity.SchoolNum = "6";
  EXPECT_THROW(MakeEpsPath(storage, folder.Path(), identity), FileError);
}

}  // namespace
}  // namespace orvex
