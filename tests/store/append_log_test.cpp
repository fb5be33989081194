#include "store/append_log.h"

#include <gtest/gtest.h>

#include <cstring>

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
  for (const int error : {ENOSPC, EIO, EROFS, EACCES}) {
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
        while (!log.Trouble().empty()) log.Retry();
        EXPECT_EQ(FileBytes(path), all);
      }
    }
  }
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

TEST_F(AppendLogTest, AFailedSyncIsToldUntilTheLogIsClosed) {
  AppendLog log(storage);
  log.Open(path);
  storage.Fail(1, EIO, "syncData");
  log.Append("first\r\n");
  storage.AwaitSyncs(1);
  log.Append("second\r\n");
  storage.AwaitSyncs(2);  // begins only when the first one's failure is known
  const std::string trouble = path.string() + ": " + std::strerror(EIO);
  EXPECT_EQ(log.Trouble(), trouble);
  log.Append("third\r\n");
  EXPECT_EQ(log.Trouble(), trouble);
  EXPECT_THROW(log.Close(), FileError);
  EXPECT_TRUE(log.IsOpen());
  EXPECT_NO_THROW(log.Close());
  EXPECT_EQ(FileBytes(path), "first\r\nsecond\r\nthird\r\n");
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

  storage.Fail(1, EIO, "sync");
  log.MoveTo(path);
  EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(EIO));
}

TEST_F(AppendLogTest, ClosingCanBeTriedAgain) {
  for (const char* call : {"write", "syncData"}) {
    AppendLog log(storage);
    log.Open(path);
    storage.Fail(1, ENOSPC, "write");
    log.Append("the last entry\r\n");
    storage.Fail(1, ENOSPC, call);
    EXPECT_THROW(log.Close(), FileError) << call;
    EXPECT_TRUE(log.IsOpen());
    log.Close();
    EXPECT_FALSE(log.IsOpen());
    EXPECT_EQ(FileBytes(path), "the last entry\r\n");
  }
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

TEST_F(AppendLogTest, AFailedOpenLeavesTheLogOpenAsItWas) {
  AppendLog log(storage);
  EXPECT_THROW(log.Open(folder / "none/1.bak"), FileError);
  EXPECT_FALSE(log.IsOpen());
  log.Open(path);
  for (const char* call : {"open", "sync", "syncData"}) {
    storage.Fail(1, EIO, call);
    EXPECT_THROW(log.Open(folder / "other.bak"), FileError) << call;
    EXPECT_EQ(log.Path(), path);
    log.Append(call);
  }
  EXPECT_EQ(FileBytes(path), "opensyncsyncData");
  log.Open(folder / "other.bak");
  log.Append("other");
  EXPECT_EQ(FileBytes(folder / "other.bak"), "other");
}

}  // namespace
}  // namespace orvex
