#include "store/durable_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "store/file_error.h"
#include "support/faulty_storage.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using test::FaultyStorage;
using test::FileBytes;
using test::PutFile;
using test::TestFolder;

constexpr const char* kOld = "what was there\r\n";
constexpr const char* kNew = "the new content, longer than the old one\r\n";

mode_t ModeOf(const fs::path& path) {
  struct stat status = {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777;
}

auto FilesIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

TEST(ReplaceFile, AnyCallMayFailForAnyReason) {
  struct Mask {
    const mode_t old = ::umask(022);
    ~Mask() { ::umask(old); }
  } const mask;
  struct Start {
    bool exists;
    std::vector<std::string> calls;
    int forgiven;  // the call that may fail without harm, beside the last one
  };
  const Start starts[] = {
      {true,
       {"open", "write", "write", "write", "setMode", "sync", "close", "rename", "open", "sync",
        "close"},
       0},
      {false,
       {"open", "setMode", "write", "write", "write", "setMode", "sync", "close", "rename", "open",
        "sync", "close"},
       2},
  };
  for (const auto& [exists, calls, forgivenCall] : starts) {
    const auto renaming = std::ranges::find(calls, "rename") - calls.begin() + 1;
    for (const int error : {ENOSPC, EIO, EROFS, EACCES, EDQUOT}) {
      for (int failing = 1; failing <= static_cast<int>(calls.size()) + 1; ++failing) {
        SCOPED_TRACE("call " + std::to_string(failing) + ": " + std::strerror(error));
        const TestFolder folder;
        const fs::path path = folder / "5-12-3.eps";
        if (exists) PutFile(path, kOld);
        if (exists) fs::permissions(path, fs::perms(0640));
        FaultyStorage storage;
        storage.LimitWrites(18);
        storage.Fail(failing, error);
        std::string told;
        try {
          ReplaceFile(storage, path, kNew);
          if (failing > static_cast<int>(calls.size())) {  // so nothing did
            EXPECT_EQ(storage.Take(), calls);
          }
        } catch (const FileError& failure) {
          told = failure.what();
        }
        // A folder that may not be read cannot be synced, and that is no error.
        const bool noFolder = error == EACCES && failing > renaming;
        const bool forgiven =
            failing >= static_cast<int>(calls.size()) || failing == forgivenCall || noFolder;
        const bool replaced = forgiven || failing > renaming;
        EXPECT_EQ(told, forgiven ? "" : path.string() + ": " + std::strerror(error));
        EXPECT_EQ(FileBytes(path), replaced ? kNew : exists ? kOld : "");
        EXPECT_EQ(FilesIn(folder.Path()), replaced || exists ? 1 : 0);
        EXPECT_TRUE(!exists || ModeOf(path) == 0640);
        EXPECT_EQ(storage.OpenDescriptors(), 0);
      }
    }
  }
}

TEST(ReplaceFile, SignalsAndWhatACrashLeftBehindDoNotDisturbIt) {
  const TestFolder folder;
  FaultyStorage storage;
  const fs::path left = folder / (".orvex-" + std::to_string(::getpid()) + "-1.tmp");
  PutFile(left, kOld);
  storage.Fail(2, EINTR, "open");
  for (const char* call : {"write", "setMode", "sync", "close"}) storage.Fail(1, EINTR, call);
  ReplaceFile(storage, folder / "notes", kNew);
  EXPECT_EQ(FileBytes(folder / "notes"), kNew);
  EXPECT_EQ(FileBytes(left), kOld);
  EXPECT_EQ(FilesIn(folder.Path()), 2);
}

TEST(ReplaceFile, KeepsOwnerAndModeAndIsPrivateMeanwhile) {
  const TestFolder folder;
  struct : FaultyStorage {
    ssize_t Write(int descriptor, const void* bytes, std::size_t count) override {
      struct stat status = {};
      EXPECT_EQ(::fstat(descriptor, &status), 0);
      EXPECT_EQ(status.st_mode & 07777, mode_t{0600});
      return FaultyStorage::Write(descriptor, bytes, count);
    }
  } storage;

  PutFile(folder / "like a new file", "");
  ReplaceFile(storage, folder / "new", kNew);
  EXPECT_EQ(ModeOf(folder / "new"), ModeOf(folder / "like a new file"));

  const fs::path path = folder / "shared";
  PutFile(path, kOld);
  fs::permissions(path, fs::perms(0664));
  // Only the super-user can make a file of someone else's.
  const bool theirs = ::chown(path.c_str(), 12345, 23456) == 0;
  ReplaceFile(storage, path, kNew);
  EXPECT_EQ(ModeOf(path), mode_t{0664});
  if (!theirs) return;
  struct stat status = {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, uid_t{12345});
  EXPECT_EQ(status.st_gid, gid_t{23456});

  for (const int refusal : {EPERM, EINVAL}) {
    storage.Fail(1, refusal, "setOwner");  // as it is for everybody else: the group, at least
    ReplaceFile(storage, path, kOld);
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_gid, gid_t{23456});
    EXPECT_EQ(FileBytes(path), kOld);
  }
}

TEST(ReplaceFile, SomeFileSystemsCannotSyncAFolder) {
  const TestFolder folder;
  for (const int error : {EINVAL, EACCES, EPERM, ENOSYS, ENOTSUP}) {
    for (const auto& [number, call] : {std::pair{2, "sync"}, {2, "open"}}) {
      FaultyStorage storage;
      storage.Fail(number, error, call);
      EXPECT_NO_THROW(ReplaceFile(storage, folder / "notes", kNew)) << call << " " << error;
      EXPECT_EQ(storage.OpenDescriptors(), 0);
    }
  }
}

TEST(ReplaceFile, LinksStayLinks) {
  const TestFolder folder;
  Storage storage;
  PutFile(folder / "stick/real", kOld);
  fs::create_symlink("stick/real", folder / "relative");
  fs::create_symlink(folder / "relative", folder / "to the link");
  fs::create_symlink(folder / "stick/none yet", folder / "dangling");
  fs::create_symlink("circle", folder / "circle");

  ReplaceFile(storage, folder / "to the link", kNew);
  ReplaceFile(storage, folder / "dangling", kNew);
  EXPECT_EQ(FileBytes(folder / "stick/real"), kNew);
  EXPECT_EQ(FileBytes(folder / "stick/none yet"), kNew);
  for (const char* link : {"relative", "to the link", "dangling"}) {
    EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
  }
  EXPECT_EQ(FilesIn(folder / "stick"), 2);
  EXPECT_THROW(ReplaceFile(storage, folder / "circle", kNew), FileError);
}

TEST(Files, OnlyRegularFilesAreReadAndReplaced) {
  const TestFolder folder;
  Storage storage;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  const std::pair<fs::path, const char*> cases[] = {
      {folder.Path(), "Is a directory"},
      {folder / "none", "No such file or directory"},
      {folder / "pipe", "not a regular file"},
      {folder / "endless", "File too large"},
  };
  PutFile(folder / "endless", "");
  fs::resize_file(folder / "endless", std::uintmax_t{1} << 40U);  // a single hole
  for (const auto& [path, cause] : cases) {
    try {
      ReadFile(path);
      ADD_FAILURE() << path << " was read";
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), path.string() + ": " + cause);
    }
  }
  EXPECT_THROW(ReplaceFile(storage, folder.Path(), kNew), FileError);
  EXPECT_THROW(ReplaceFile(storage, folder / "pipe", kNew), FileError);
}

TEST(Files, AFolderIsMadeOnceAndOnlyWhereItCanBe) {
  const TestFolder folder;
  FaultyStorage storage;
  EnsureFolder(storage, folder / "EPS");
  EnsureFolder(storage, folder / "EPS");
  EXPECT_TRUE(fs::is_directory(folder / "EPS"));
  PutFile(folder / "a file", kOld);
  EXPECT_THROW(EnsureFolder(storage, folder / "a file"), FileError);
  EXPECT_THROW(EnsureFolder(storage, folder / "none/5"), FileError);
  for (const char* call : {"makeFolder", "sync"}) {
    storage.Fail(1, EROFS, call);
    EXPECT_THROW(EnsureFolder(storage, folder / call), FileError);
  }
  storage.Fail(1, EIO, "sync");  // the folder is there by now, but perhaps not on the disk
  EXPECT_THROW(EnsureFolder(storage, folder / "sync"), FileError);
  EXPECT_EQ(storage.OpenDescriptors(), 0);
}

}  // namespace
}  // namespace orvex
