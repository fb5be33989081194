#include "store/append_log.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstring>
#include <fstream>
#include <thread>

#include "store/file_error.h"
#include "support/faulty_storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::FaultyStorage;
using test::FileBytes;
using test::PutFile;
using test::TestFolder;

class AppendLogTest : public ::testing::Test {
 protected:
  const TestFolder folder;
  const std::filesystem::path path = folder / "7-12-3.bak";
  FaultyStorage storage;
};

TEST_F(AppendLogTest, EachEntryIsOneWrite) {
  PutFile(path, "of another class");
  AppendLog log(storage);
  log.Open(path);
  storage.Take();
  for (const char* entry : {"LOG ON\r\n", "\r\nEpisode 1\r\n", "\r\n"}) log.Append(entry);
  EXPECT_EQ(FileBytes(path), "LOG ON\r\n\r\nEpisode 1\r\n\r\n");
  EXPECT_EQ(std::ranges::count(storage.Take(), "write"), 3);
}

TEST_F(AppendLogTest, NoFailureDoublesLosesOrReordersAnything) {
  const std::vector<std::string> entries = {"one\r\n", "two, longer\r\n", "\r\n", "four\r\n"};
  std::string all;
  for (const std::string& entry : entries) all += entry;
  for (const int error : {ENOSPC, EDQUOT, EIO, EBADF, EROFS}) {
    for (const std::size_t limit : {1U, 4U, 1000U}) {
      for (int failing = 1; failing <= 10; ++failing) {
        SCOPED_TRACE(std::to_string(failing) + " of writes of " + std::to_string(limit));
        FaultyStorage faulty;
        faulty.LimitWrites(limit);
        AppendLog log(faulty);
        log.Open(path);
        faulty.Fail(failing, error, "write");
        faulty.Fail(failing + 1, error, "write");
        faulty.Fail(failing + 2, EINTR, "write");
        std::string sofar;
        for (const std::string& entry : entries) {
          log.Append(entry);
          sofar += entry;
          const bool whole = FileBytes(path) == sofar;
          EXPECT_TRUE(sofar.starts_with(FileBytes(path)));
          EXPECT_EQ(log.Trouble(), whole ? "" : path.string() + ": " + std::strerror(error));
        }
        for (int tries = 0; tries < 3 && !log.Trouble().empty(); ++tries) log.Retry();
        log.Close();
        EXPECT_EQ(FileBytes(path), all);
        EXPECT_EQ(faulty.OpenDescriptors(), 0);
      }
    }
  }
}

TEST_F(AppendLogTest, ADeadDescriptorIsReplacedAndTheFilePutBackWhole) {
  AppendLog log(storage);
  log.Open(path);
  log.Append("one\r\n");
  // The stick is pulled out and put in again, empty.
  std::filesystem::remove(path);
  storage.Fail(1, EIO, "write");
  for (const char* call : {"open", "rename"}) storage.Fail(1, EROFS, call);
  log.Append("two\r\n");
  EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(EROFS));
  log.Retry();
  EXPECT_NE(log.Trouble(), "");
  log.Retry();
  EXPECT_EQ(log.Trouble(), "");
  EXPECT_EQ(FileBytes(path), "one\r\ntwo\r\n");
  log.Append("three\r\n");
  EXPECT_EQ(FileBytes(path), "one\r\ntwo\r\nthree\r\n");
  log.Close();
  EXPECT_EQ(storage.OpenDescriptors(), 0);
}

TEST_F(AppendLogTest, WhatAnotherProgramAddsIsNotOverwritten) {
  AppendLog log(storage);
  log.Open(path);
  log.Append("one\r\n");
  std::ofstream(path, std::ios::app) << "theirs\r\n";
  log.Append("two\r\n");
  EXPECT_EQ(FileBytes(path), "one\r\ntheirs\r\ntwo\r\n");
}

TEST_F(AppendLogTest, ASlowDiskDoesNotHoldUpTheObserver) {
  AppendLog log(storage);
  log.Open(path);
  storage.HoldSyncs(true);
  log.Append("first\r\n");
  storage.AwaitSyncs(1);
  log.Append("second\r\n");
  log.MoveTo(folder / "moved.bak");
  log.Append("third\r\n");
  EXPECT_EQ(FileBytes(folder / "moved.bak"), "first\r\nsecond\r\nthird\r\n");
  storage.HoldSyncs(false);
  storage.AwaitSyncs(2);  // what came in the meantime is synced as well
}

TEST_F(AppendLogTest, AfterAFailedSyncNothingIsSafeUntilItIsWrittenAnew) {
  AppendLog log(storage);
  log.Open(path);
  for (int rename = 1; rename <= 3; ++rename) storage.Fail(rename, EACCES, "rename");
  storage.HoldSyncs(true);
  storage.Fail(1, EIO, "syncData");
  log.Append("first\r\n");
  storage.AwaitSyncs(1);
  std::thread disk([this] { storage.HoldSyncs(false); });
  for (int tries = 0; tries < 3; ++tries) {
    EXPECT_THROW(log.Close(), FileError) << "the sync is waited for, and its failure kept";
    EXPECT_TRUE(log.IsOpen());
    EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(EACCES));
  }
  disk.join();
  storage.Take();
  log.Append("second\r\n");
  EXPECT_EQ(log.Trouble(), "");
  log.Close();
  EXPECT_EQ(std::ranges::count(storage.Take(), "rename"), 1);
  EXPECT_EQ(FileBytes(path), "first\r\nsecond\r\n");
}

TEST_F(AppendLogTest, AnErrorOfTheClosingIsToldButTheLogIsClosed) {
  AppendLog log(storage);
  log.Open(path);
  log.Append("first\r\n");
  storage.Fail(1, EIO, "close");
  EXPECT_THROW(log.Close(), FileError);
  EXPECT_FALSE(log.IsOpen());
  EXPECT_EQ(storage.OpenDescriptors(), 0);
  EXPECT_NO_THROW(log.Close());
}

TEST_F(AppendLogTest, MovingFollowsTheFile) {
  const auto moved = folder / "7-13-3.bak";
  PutFile(moved, "to be overwritten");
  AppendLog log(storage);
  log.Open(path);
  log.Append("before\r\n");
  log.MoveTo(moved);
  log.Append("after\r\n");
  EXPECT_EQ(log.Path(), moved);
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(FileBytes(moved), "before\r\nafter\r\n");

  storage.Fail(1, EACCES, "rename");
  EXPECT_THROW(log.MoveTo(path), FileError);
  EXPECT_THROW(log.MoveTo(folder / "none/1.bak"), FileError);
  log.Append("still here\r\n");
  EXPECT_EQ(log.Path(), moved);
  EXPECT_EQ(FileBytes(moved), "before\r\nafter\r\nstill here\r\n");

  // The folder's sync fails behind the observer's back, and the file cannot be put back at first.
  storage.Fail(1, EIO, "sync");
  storage.Fail(2, EACCES, "rename");
  log.MoveTo(path);
  EXPECT_THROW(log.Close(), FileError);
  EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(EACCES));
  log.Close();
  EXPECT_EQ(FileBytes(path), "before\r\nafter\r\nstill here\r\n");
}

TEST_F(AppendLogTest, ClosingCanBeTriedAgain) {
  AppendLog log(storage);
  log.Open(path);
  storage.Fail(1, ENOSPC, "write");
  storage.Fail(2, ENOSPC, "write");
  log.Append("the last entry\r\n");
  EXPECT_THROW(log.Close(), FileError);
  EXPECT_TRUE(log.IsOpen());
  log.Close();
  EXPECT_FALSE(log.IsOpen());
  EXPECT_EQ(FileBytes(path), "the last entry\r\n");
}

TEST_F(AppendLogTest, WhatWaitsIsWrittenWhenTheProgramEnds) {
  {
    AppendLog log(storage);
    log.Open(path);
    storage.Fail(1, ENOSPC, "write");
    log.Append("waiting\r\n");
    EXPECT_EQ(FileBytes(path), "");
  }
  EXPECT_EQ(FileBytes(path), "waiting\r\n");
}

TEST_F(AppendLogTest, AFailedOpenLeavesEverythingAsItWas) {
  const auto other = folder / "other.bak";
  PutFile(other, "another class");
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  AppendLog log(storage);
  for (const auto& wrong : {folder / "none/1.bak", folder / "pipe", folder.Path()}) {
    EXPECT_THROW(log.Open(wrong), FileError) << wrong;
    EXPECT_FALSE(log.IsOpen());
  }
  EXPECT_EQ(storage.OpenDescriptors(), 0);
  log.Open(path);
  for (const char* call : {"open", "sync", "truncate"}) {
    storage.Fail(1, EIO, call);
    EXPECT_THROW(log.Open(other), FileError) << call;
    EXPECT_EQ(log.Path(), path);
    EXPECT_EQ(FileBytes(other), "another class");
    EXPECT_EQ(storage.OpenDescriptors(), 1);
    log.Append(call);
  }
  // Nor is a log given up that cannot be completed.
  storage.Fail(1, ENOSPC, "write");
  storage.Fail(2, ENOSPC, "write");
  log.Append("!");
  EXPECT_THROW(log.Open(other), FileError);
  EXPECT_EQ(FileBytes(other), "another class");
  log.Open(other);
  log.Append("other");
  EXPECT_EQ(FileBytes(path), "opensynctruncate!");
  EXPECT_EQ(FileBytes(other), "other");
  EXPECT_EQ(storage.OpenDescriptors(), 1);
}

}  // namespace
}  // namespace orvex
