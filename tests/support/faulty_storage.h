#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "store/storage.h"

namespace orvex::test {

/// The real disk, except that chosen calls fail or write less than they should.
class FaultyStorage : public Storage {
 public:
  /// The `number`-th call from now on, of all or of those called `name`, fails with `error`.
  void Fail(int number, int error, const std::string& name = "") {
    const std::lock_guard lock(mutex_);
    faults_.push_back({name, number, error});
  }
  /// No write takes more than `bytes`.
  void LimitWrites(std::size_t bytes) { mostBytes_ = bytes; }
  /// Every sync of a log waits until it is let go, or until the test can only have failed.
  void HoldSyncs(bool hold) {
    const std::lock_guard lock(mutex_);
    held_ = hold;
    changed_.notify_all();
  }
  /// Waits until the disk was asked for `count` syncs of a log since the last `Take`.
  void AwaitSyncs(int count) {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(changed_.wait_for(lock, kLongest, [&] { return syncs_ >= count; })) << syncs_;
  }
  /// How many descriptors have been opened and not closed.
  int OpenDescriptors() const { return openDescriptors_; }
  /// The names of the calls since the last `Take`, in order.
  std::vector<std::string> Take() {
    const std::lock_guard lock(mutex_);
    syncs_ = 0;
    return std::exchange(calls_, {});
  }

  int Open(const char* path, int flags, mode_t mode) override {
    const int descriptor = Failing("open") ? -1 : Storage::Open(path, flags, mode);
    if (descriptor >= 0) ++openDescriptors_;
    return descriptor;
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) override {
    if (Failing("write")) return -1;
    return Storage::Write(descriptor, bytes, std::min(count, mostBytes_));
  }
  int Sync(int descriptor) override { return Failing("sync") ? -1 : Storage::Sync(descriptor); }
  int SyncData(int descriptor) override {
    const bool failing = Failing("syncData");
    const int cause = errno;
    {
      std::unique_lock lock(mutex_);
      ++syncs_;
      changed_.notify_all();
      changed_.wait_for(lock, kLongest, [this] { return !held_; });
    }
    errno = cause;
    return failing ? -1 : Storage::SyncData(descriptor);
  }
  int Close(int descriptor) override {
    // As on Linux, the descriptor is gone even when the close fails.
    const bool failing = Failing("close");
    const int cause = errno;
    const int result = Storage::Close(descriptor);
    if (result == 0) --openDescriptors_;
    errno = cause;
    return failing ? -1 : result;
  }
  int Rename(const char* from, const char* to) override {
    return Failing("rename") ? -1 : Storage::Rename(from, to);
  }
  int Unlink(const char* path) override { return Failing("unlink") ? -1 : Storage::Unlink(path); }
  int MakeFolder(const char* path, mode_t mode) override {
    return Failing("makeFolder") ? -1 : Storage::MakeFolder(path, mode);
  }
  int SetOwner(int descriptor, uid_t owner, gid_t group) override {
    return Failing("setOwner") ? -1 : Storage::SetOwner(descriptor, owner, group);
  }
  int SetMode(int descriptor, mode_t mode) override {
    return Failing("setMode") ? -1 : Storage::SetMode(descriptor, mode);
  }
  int Truncate(int descriptor, off_t size) override {
    return Failing("truncate") ? -1 : Storage::Truncate(descriptor, size);
  }

 private:
  static constexpr std::chrono::seconds kLongest{60};

  struct Fault {
    std::string name;
    int left;
    int error;
  };

  bool Failing(const std::string& call) {
    const std::lock_guard lock(mutex_);
    calls_.push_back(call);
    bool failing = false;
    for (Fault& fault : faults_) {
      if (!fault.name.empty() && fault.name != call) continue;
      if (--fault.left != 0) continue;
      errno = fault.error;
      failing = true;
    }
    return failing;
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<Fault> faults_;
  std::vector<std::string> calls_;
  std::size_t mostBytes_ = static_cast<std::size_t>(-1);
  int syncs_ = 0;
  bool held_ = false;
  std::atomic<int> openDescriptors_ = 0;
};

}  // namespace orvex::test
