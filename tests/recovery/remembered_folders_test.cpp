#include "recovery/remembered_folders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "store/storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

TEST(RememberedFolders, LoseThoseFirstInWhichNothingIsKeptAnyMore) {
  const test::TestFolder disk;
  const test::TestFolder own;
  Storage storage;
  const fs::path unfinished = disk / "first";
  test::PutFile(unfinished / "BAK/7/12/7-12-3.recovery", "a class");
  const fs::path edited = disk / "EPS";
  test::PutFile(edited / "7-12-3.eps.recovery.12", "a file");
  const fs::path gone = disk / "stick";
  for (const fs::path& folder : {unfinished, edited, gone}) {
    RememberFolder(storage, own.Path(), folder);
  }
  for (int i = 0; i < 40; ++i) {
    const fs::path settled = disk / std::to_string(i);
    fs::create_directory(settled);
    RememberFolder(storage, own.Path(), settled / "");
    RememberFolder(storage, own.Path(), settled / "../first");
  }
  const std::vector<fs::path> folders = RememberedFolders(own.Path());
  EXPECT_EQ(folders.size(), 32U);
  EXPECT_EQ(folders.front(), disk / "39");
  EXPECT_EQ(std::vector(folders.end() - 3, folders.end()), (std::vector{gone, edited, unfinished}));
}

}  // namespace
}  // namespace orvex
