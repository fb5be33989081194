#include "start/start_up.h"

#include <gtest/gtest.h>

#include "store/storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using test::PutFile;
using test::TestFolder;

TEST(ProgramFolder, IsTheExecutablesWhereThatCanBeWritten) {
  const TestFolder disk;
  Storage storage;
  EXPECT_EQ(ProgramFolder(storage, {disk.Path(), true, disk / "share/orvex"}), disk.Path());
  EXPECT_FALSE(fs::exists(disk / "share")) << "nothing is made that is not needed";
}

TEST(ProgramFolder, IsTheUsersOtherwiseAndIsMadeWithItsParents) {
  const TestFolder disk;
  Storage storage;
  const fs::path user = disk / ".local/share/orvex";
  const Installation installation = {"/usr/bin", false, user};
  EXPECT_EQ(ProgramFolder(storage, installation), user);
  EXPECT_TRUE(fs::is_directory(user));
  EXPECT_EQ(ProgramFolder(storage, installation), user) << "the second start";
}

TEST(ProgramFolder, ThatCannotBeMadeDoesNotKeepTheProgramFromStarting) {
  const TestFolder disk;
  Storage storage;
  PutFile(disk / ".local", "a file in the way");
  const fs::path user = disk / ".local/share/orvex";
  EXPECT_EQ(ProgramFolder(storage, {"/usr/bin", false, user}), user);
}

class DataPath : public testing::Test {
 protected:
  fs::path Settle() {
    Program program;
    program.QuitRequested = true;
    SettleDataPath(program, disk_.Path());
    EXPECT_FALSE(program.QuitRequested);
    return program.DataPath;
  }

  const TestFolder disk_;
};

TEST_F(DataPath, IsTheFirstLineOfTheOptionsFileWhereThatNamesAFolder) {
  fs::create_directories(disk_ / "my obs");
  fs::create_directories(disk_ / "other");
  const std::string folder = (disk_ / "my obs").string();
  const std::string other = (disk_ / "other").string();
  const std::string written[] = {folder + "\r\n", folder + "\n", folder, folder + "/\r\n",
                                 folder + "\r\n" + other + "\r\n"};
  for (const std::string& options : written) {
    PutFile(disk_ / "options", options);
    const std::string line = options.substr(0, options.find_first_of("\r\n"));
    EXPECT_EQ(Settle().string(), line) << "exactly as it is written";
  }
}

TEST_F(DataPath, IsTheProgramFolderOtherwise) {
  EXPECT_EQ(Settle(), disk_.Path()) << "no options file";

  PutFile(disk_ / "a file", "");
  const std::string missing = (disk_ / "gone").string();
  const std::string file = (disk_ / "a file").string();
  const std::string written[] = {"",
                                 "\r\n",
                                 missing + "\r\n",
                                 file + "\r\n",
                                 " " + disk_.Path().string() + "\r\n",
                                 "\r\n" + disk_.Path().string() + "/..\r\n"};
  for (const std::string& options : written) {
    PutFile(disk_ / "options", options);
    EXPECT_EQ(Settle(), disk_.Path()) << options;
  }

  fs::remove(disk_ / "options");
  fs::create_directory(disk_ / "options");
  EXPECT_EQ(Settle(), disk_.Path()) << "a folder of that name";
}

}  // namespace
}  // namespace orvex
