#include "recovery/recovery_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "recovery/kept_content.h"
#include "store/claim.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "support/faulty_storage.h"
#include "support/test_folder.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

class RecoveryFileTest : public testing::Test {
 protected:
  RecoveryFileTest() { fs::create_directories(path_.parent_path()); }

  /// The names of the files in the folder.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path_.parent_path())) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }

  TestFolder folder_;
  fs::path path_ = folder_ / "BAK/7/12/7-12-3.recovery";
  FaultyStorage disk_;
};

TEST_F(RecoveryFileTest, KeepsTheNewestContentUntilItIsRemoved) {
  {
    RecoveryFile file(disk_);
    file.Keep("without a path nothing is kept");
    file.Begin(path_);
    for (int i = 1; i <= 100; ++i) file.Keep("content " + std::to_string(i) + "\r\n");
    file.AwaitStored();
    EXPECT_EQ(file.Trouble(), "");
    EXPECT_EQ(ReadKept(path_).content, "content 100\r\n");
    EXPECT_EQ(KeptPaths(folder_ / "BAK"), std::vector{path_});
    EXPECT_TRUE(IsClaimed(path_));
    file.Keep("the last");  // stored even if the program ends at once
  }
  EXPECT_EQ(Names(), std::vector<std::string>{"7-12-3.recovery"});
  EXPECT_FALSE(IsClaimed(path_));
  RecoveryFile next(disk_);
  EXPECT_THROW(next.Begin(path_), FileError) << "what is kept is nobody's to overwrite";
  const KeptContent kept = ReadKept(path_);
  EXPECT_EQ(kept.content, "the last");
  EXPECT_THROW(next.TakeUp(path_, kept.number - 1), FileError) << "it is another content by now";
  next.TakeUp(path_, kept.number);
  next.Keep("newer");
  next.AwaitStored();
  EXPECT_GT(ReadKept(path_).number, kept.number);
  next.Remove();
  EXPECT_EQ(Names(), std::vector<std::string>{});
  EXPECT_EQ(disk_.OpenDescriptors(), 0);
}

TEST_F(RecoveryFileTest, BelongsToOneProgramAtATime) {
  RecoveryFile one(disk_);
  RecoveryFile other(disk_);
  one.Begin(path_);
  EXPECT_THROW(other.Begin(path_), FileError);
  EXPECT_THROW(other.TakeUp(path_, 0), FileError);
  one.Leave();
  other.Begin(path_);
  EXPECT_THROW(one.Begin(path_), FileError);
}

TEST_F(RecoveryFileTest, MovesWithTheClass) {
  RecoveryFile file(disk_);
  const fs::path moved = path_.parent_path() / "7-12-4.recovery";
  file.Begin(path_);
  file.Keep("before");
  file.AwaitStored();
  // The old file goes once the new one is on the disk, even with other work under way or after
  // moving there and back.
  disk_.HoldSyncs(true);
  file.Keep("under way");
  file.AwaitWritten();
  file.Keep("newest");
  file.AwaitWritten();
  file.MoveTo(moved);
  file.AwaitWritten();
  EXPECT_EQ(ReadKept(moved).content, "newest") << "without another content";
  file.MoveTo(path_);
  file.MoveTo(moved);
  disk_.HoldSyncs(false);
  file.AwaitStored();
  EXPECT_EQ(ReadKept(moved).content, "newest");
  EXPECT_FALSE(IsKeptAt(path_));
  file.MoveTo(path_);
  file.MoveTo(moved);
  file.Keep("after");
  file.AwaitStored();
  EXPECT_EQ(ReadKept(moved).content, "after");
  EXPECT_EQ(KeptPaths(folder_ / "BAK"), std::vector{moved});
  RecoveryFile other(disk_);
  other.Begin(path_);
  EXPECT_THROW(file.MoveTo(path_), FileError);
}

TEST_F(RecoveryFileTest, StaysAtTheOldPathUntilItIsStoredAtTheNewOne) {
  RecoveryFile file(disk_);
  file.Begin(path_);
  file.Keep("kept");
  file.AwaitStored();
  disk_.Fail(1, EIO, "rename");
  file.MoveTo(path_.parent_path() / "7-12-4.recovery");
  file.AwaitStored();
  EXPECT_EQ(ReadKept(path_).content, "kept");
  file.Retry();
  file.AwaitStored();
  EXPECT_FALSE(IsKeptAt(path_));
}

TEST_F(RecoveryFileTest, ComesBackWithItsFoldersAndItsLock) {
  RecoveryFile file(disk_);
  file.Begin(path_);
  file.Keep("before");
  file.AwaitStored();
  fs::remove_all(folder_ / "BAK");
  file.Keep("after");
  file.AwaitStored();
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(ReadKept(path_).content, "after");
  EXPECT_TRUE(IsClaimed(path_));
}

TEST_F(RecoveryFileTest, FollowsNobodysLink) {
  const fs::path planted = folder_ / "planted";
  std::ofstream(planted) << Sealed("planted", 99);
  fs::create_symlink(planted, path_);
  fs::create_symlink(planted, path_.string() + ".1");
  EXPECT_FALSE(IsKeptAt(path_));
  RecoveryFile file(disk_);
  file.Begin(path_);
  file.Keep("kept");
  file.AwaitStored();
  EXPECT_EQ(ReadKept(path_).content, "kept");
  EXPECT_EQ(FileBytes(planted), Sealed("planted", 99));
}

TEST_F(RecoveryFileTest, IsReadFromWhatWasUnderWay) {
  const auto put = [&](const std::string& name, const std::string& bytes) {
    std::ofstream(path_.parent_path() / name, std::ios::binary) << bytes;
  };
  put("7-12-3.recovery", Sealed("old", 8));
  put("7-12-3.recovery.9", Sealed("under way", 9));
  put("7-12-3.recovery.10", Sealed("torn", 10).substr(0, 9));
  put("7-12-3.bak", "no recovery file");
  EXPECT_EQ(ReadKept(path_).content, "under way");
  EXPECT_EQ(ReadKept(path_).number, 9U);
  EXPECT_EQ(KeptPaths(folder_ / "BAK"), std::vector{path_});
  fs::remove(path_);
  EXPECT_EQ(ReadKept(path_).content, "under way") << "a class may have been killed at its start";
  fs::remove(path_.string() + ".9");
  EXPECT_THROW(ReadKept(path_), FormatError);
}

TEST_F(RecoveryFileTest, NothingButTheWholeContentIsTaken) {
  const std::string good = Sealed("Orvex recovery=1\r\nseal=3 x\r\n", 7);
  EXPECT_EQ(Unsealed(good).content, "Orvex recovery=1\r\nseal=3 x\r\n");
  for (std::size_t size = 0; size < good.size(); ++size) {
    EXPECT_THROW(Unsealed(good.substr(0, size)), FormatError) << size;
  }
  for (std::size_t bit = 0; bit < 8 * good.size(); ++bit) {
    std::string flipped = good;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
    EXPECT_THROW(Unsealed(flipped), FormatError) << bit;
  }
  EXPECT_THROW(Unsealed(good + "\r\n"), FormatError);
}

TEST_F(RecoveryFileTest, WaitsForNoDisk) {
  RecoveryFile file(disk_);
  file.Begin(path_);
  disk_.HoldSyncs(true);
  for (int i = 1; i <= 20; ++i) {
    file.Keep("content " + std::to_string(i));
    file.AwaitWritten();
    // The disk has not completed a single sync, and yet a kill would lose nothing.
    EXPECT_EQ(ReadKept(path_).content, "content " + std::to_string(i));
    EXPECT_LE(Names().size(), 3U);  // the lock, the file being synced, and the next one
  }
  disk_.HoldSyncs(false);
  file.AwaitStored();
  EXPECT_EQ(Names().size(), 2U);
}

TEST_F(RecoveryFileTest, EveryFailureIsToldAndMadeGood) {
  int faults = 0;
  for (const std::string call : {"open", "write", "sync", "rename"}) {
    for (const int error : {EIO, ENOSPC, EACCES, EROFS}) {
      RecoveryFile file(disk_);
      file.Begin(path_);
      file.Keep("old");
      file.AwaitStored();
      disk_.Fail(1, error, call);
      file.Keep("new");
      file.AwaitStored();
      EXPECT_NE(file.Trouble().find("7-12-3.recovery: "), std::string::npos) << call;
      const std::string kept = ReadKept(path_).content;
      EXPECT_TRUE(kept == "old" || kept == "new") << kept;
      file.Retry();
      file.AwaitStored();
      EXPECT_EQ(file.Trouble(), "") << call;
      EXPECT_EQ(ReadKept(path_).content, "new") << call;
      EXPECT_EQ(Names().size(), 2U) << call;
      file.Remove();
      ++faults;
    }
  }
  EXPECT_EQ(disk_.OpenDescriptors(), 0);
  RecordProperty("faults", faults);
}

}  // namespace
}  // namespace orvex::test
