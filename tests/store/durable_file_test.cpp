#include "store/durable_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "store/file_error.h"
#include "support/faulty_storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using test::FaultyStorage;
using test::FileBytes;
using test::PutFile;

constexpr const char* kOld = "what was there\r\n";
constexpr const char* kNew = "the new content, longer than the old one\r\n";

auto FilesIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

/// Replaces or creates a file while call number `failing` fails.
void ReplaceWhile(int failing, int error, bool exists) {
  SCOPED_TRACE("call " + std::to_string(failing) + ": " + std::strerror(error));
  const test::TestFolder folder;
  const fs::path path = folder / "5-12-3.eps";
  if (exists) PutFile(path, kOld);
  if (exists) fs::permissions(path, fs::perms(0640));
  FaultyStorage storage;
  storage.LimitWrites(18);
  storage.Fail(failing, error);
  std::string told;
  try {
    ReplaceFile(storage, path, kNew);
  } catch (const FileError& failure) {
    told = failure.what();
  }
  const int rename = exists ? 8 : 9;
  const bool notPrivate = !exists && failing == 2;  // a new file need not be private
  const bool replaced = failing > rename || notPrivate;
  // A folder without read permission cannot be synced, which is forgiven. The last call closes it.
  const bool forgiven = replaced && (notPrivate || error == EACCES || failing >= rename + 3);
  EXPECT_EQ(told, forgiven ? "" : path.string() + ": " + std::strerror(error));
  EXPECT_EQ(FileBytes(path), replaced ? kNew : exists ? kOld : "");
  EXPECT_EQ(FilesIn(folder.Path()), replaced || exists ? 1 : 0);
  EXPECT_TRUE(!exists || fs::status(path).permissions() == fs::perms(0640));
  EXPECT_EQ(storage.OpenDescriptors(), 0);
}

TEST(ReplaceFile, AnyCallMayFailForAnyReason) {
  for (const int error : {ENOSPC, EIO, EACCES}) {
    for (int failing = 1; failing <= 11; ++failing) ReplaceWhile(failing, error, true);
    for (int failing = 1; failing <= 12; ++failing) ReplaceWhile(failing, error, false);
  }
}

TEST(ReplaceFile, LinksSignalsAndWhatACrashLeftBehindDoNotDisturbIt) {
  const test::TestFolder folder;
  FaultyStorage storage;
  storage.Fail(2, EINTR, "open");
  for (const char* call : {"write", "setMode", "sync", "close"}) storage.Fail(1, EINTR, call);
  fs::create_symlink("stick/real", folder / "link");
  const fs::path left = folder / ("stick/.orvex-" + std::to_string(::getpid()) + "-1.tmp");
  PutFile(left, kOld);
  constexpr const char* kOfNobody = "stick/.orvex-999999999-1.tmp";
  PutFile(folder / kOfNobody, kOld);
  fs::last_write_time(folder / kOfNobody,
                      fs::file_time_type::clock::now() - std::chrono::hours(25));
  ReplaceFile(storage, folder / "link", kNew);
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(FileBytes(folder / "stick/real"), kNew);
  EXPECT_EQ(FileBytes(left), kOld);
  EXPECT_EQ(FilesIn(folder / "stick"), 2);
}

TEST(ReadFile, TakesOnlyARegularFileOfASizeThatAProgramCanHold) {
  const test::TestFolder folder;
  PutFile(folder / "file", kOld);
  fs::create_symlink("file", folder / "link");
  EXPECT_EQ(ReadFile(folder / "link"), kOld);
  EXPECT_THROW(ReadFile(folder / "link", Links::areRefused), FileError);
  EXPECT_THROW(ReadFile(folder.Path()), FileError);
  // A sparse file, which only appears to be this large.
  constexpr std::uintmax_t kHuge = std::uintmax_t{1} << 42;
  fs::resize_file(folder / "file", kHuge);
  EXPECT_THROW(ReadFile(folder / "file"), FileError);
  // Reading this pipe without a writer might block forever, so another process does it.
  const fs::path pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const auto read = [&] {
    ::alarm(20);
    try {
      ReadFile(pipe);
    } catch (const FileError& refusal) {
      std::cerr << refusal.what();
      std::_Exit(0);
    }
  };
  EXPECT_EXIT(read(), testing::ExitedWithCode(0), "not a regular file");
}

}  // namespace
}  // namespace orvex
