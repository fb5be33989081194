#include "store/append_log.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "store/file_error.h"
#include "support/faulty_storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::FaultyStorage;
using test::FileBytes;

struct AppendLogTest : ::testing::Test {
  const test::TestFolder folder;
  AppendLogTest() { std::filesystem::create_directories(path.parent_path()); }
  const std::filesystem::path path = folder / "BAK/7/12/7-12-3.bak";
  FaultyStorage storage;
};

TEST_F(AppendLogTest, NoFailureDoublesLosesOrReordersAnything) {
  const std::vector<std::string> entries = {"one\r\n", "two, longer\r\n", "\r\n", "four\r\n"};
  for (const int error : {ENOSPC, EIO, EBADF}) {
    for (const std::size_t limit : {1U, 4U, 1000U}) {
      for (int failing = 1; failing <= 10; ++failing) {
        SCOPED_TRACE(std::to_string(failing) + " of writes of " + std::to_string(limit));
        FaultyStorage faulty;
        faulty.LimitWrites(limit);
        faulty.Fail(failing, error, "write");
        faulty.Fail(failing + 1, error, "write");
        faulty.Fail(failing + 2, EINTR, "write");
        std::string sofar;
        {  // waiting entries are written when the log is destroyed
          AppendLog log(faulty);
          log.Open(path);
          for (const std::string& entry : entries) {
            log.Append(entry);
            sofar += entry;
            log.Settle();
            const bool whole = FileBytes(path) == sofar;
            EXPECT_TRUE(sofar.starts_with(FileBytes(path)));
            if (!whole || !log.Trouble().empty()) {
              EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(error));
            }
          }
          log.Retry();
        }
        EXPECT_EQ(FileBytes(path), sofar);
        EXPECT_EQ(faulty.OpenDescriptors(), 0);
      }
    }
  }
}

TEST_F(AppendLogTest, ADeadDescriptorIsReplacedAndTheFilePutBackWhole) {
  AppendLog log(storage);
  log.Open(path);
  log.Append("one\r\n");
  // The USB stick is pulled out and comes back empty.
  std::filesystem::remove(path);
  storage.Fail(1, EIO, "write");
  for (const char* call : {"open", "rename"}) storage.Fail(1, EROFS, call);
  log.Append("two\r\n");
  log.Settle();
  EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(EROFS));
  for (int tries = 0; tries < 2; ++tries) {
    log.Retry();
    log.Settle();
  }
  EXPECT_EQ(log.Trouble(), "");
  // A missing file is put back even if no call has failed.
  std::filesystem::remove(path);
  log.Append("three\r\n");
  EXPECT_NE(log.Trouble(), "");
  log.Settle();
  EXPECT_EQ(log.Trouble(), "");
  EXPECT_EQ(FileBytes(path), "one\r\ntwo\r\nthree\r\n");
  // The folders of the class are made again too, but not the folder where the disk is mounted.
  std::filesystem::remove_all(folder / "BAK");
  log.Append("four\r\n");
  log.Settle();
  EXPECT_EQ(FileBytes(path), "one\r\ntwo\r\nthree\r\nfour\r\n");
  std::filesystem::remove_all(folder.Path());
  log.Append("five\r\n");
  log.Settle();
  EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(ENOENT));
  std::filesystem::create_directory(folder.Path());
  log.Retry();
  log.Settle();
  // The file is put back in the background, without waiting for the disk.
  std::filesystem::remove(path);
  storage.HoldSyncs(true);
  log.Append("six\r\n");
  log.Append("seven\r\n");
  EXPECT_NE(log.Trouble(), "");
  storage.HoldSyncs(false);
  log.Settle();
  EXPECT_EQ(FileBytes(path), "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix\r\nseven\r\n");
}

TEST_F(AppendLogTest, EachEntryIsOneWriteThatNoSlowDiskHoldsUp) {
  AppendLog log(storage);
  test::PutFile(path, "of another class");
  log.Open(path);
  storage.HoldSyncs(true);
  log.Append("first\r\n");
  storage.AwaitSyncs(1);
  std::ofstream(path, std::ios::app) << "another program's\r\n";
  log.Append("second\r\nof two lines\r\n");
  log.MoveTo(folder / "moved.bak");
  log.Append("third\r\n");
  EXPECT_EQ(FileBytes(folder / "moved.bak"),
            "first\r\nanother program's\r\nsecond\r\nof two lines\r\nthird\r\n");
  EXPECT_EQ(std::ranges::count(storage.Take(), "write"), 3) << "one for each entry";
  storage.HoldSyncs(false);
  storage.AwaitSyncs(1);  // entries that came in the meantime are synced as well
}

TEST_F(AppendLogTest, AfterAFailedSyncNothingIsSafeUntilItIsWrittenAnew) {
  AppendLog log(storage);
  log.Open(path);
  for (int rename = 1; rename <= 2; ++rename) storage.Fail(rename, EACCES, "rename");
  log.AwaitSynced();
  storage.Fail(1, EIO, "syncData");
  // The sync must not have failed before Append looks, which would then begin to mend it.
  storage.HoldSyncs(true);
  log.Append("first\r\n");
  storage.HoldSyncs(false);
  for (int tries = 0; tries < 2; ++tries) {
    EXPECT_THROW(log.Close(), FileError) << "the sync is waited for, and its failure kept";
    EXPECT_EQ(log.Trouble(), path.string() + ": " + std::strerror(EACCES));
  }
  storage.Take();
  log.Append("second\r\n");
  log.Close();
  EXPECT_EQ(std::ranges::count(storage.Take(), "rename"), 1);
  EXPECT_EQ(FileBytes(path), "first\r\nsecond\r\n");
}

TEST_F(AppendLogTest, WhatCannotBeMovedOrOpenedLeavesTheLogAsItWas) {
  const auto other = folder / "7-13-3.bak";
  test::PutFile(other, "another class");
  AppendLog log(storage);
  log.Open(path);
  EXPECT_THROW(log.MoveTo(folder / "none/1.bak"), FileError);
  log.AwaitSynced();
  storage.Fail(1, EIO, "open");
  EXPECT_THROW(log.Open(other), FileError);
  EXPECT_EQ(storage.OpenDescriptors(), 1);
  log.Append("still here");
  EXPECT_EQ(FileBytes(path), "still here");
  EXPECT_EQ(FileBytes(other), "another class");
}

}  // namespace
}  // namespace orvex
