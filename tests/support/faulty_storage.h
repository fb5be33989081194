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
  /// Every sync waits until it is let go, or until the test can only have failed.
  void HoldSyncs(bool hold) {
    const std::lock_guard lock(mutex_);
    held_ = hold;
    changed_.notify_all();
  }
  /// Waits until the disk was asked for `count` syncs of a log since the last `Take`.
  void AwaitSyncs(int count) {
    AwaitThat([&] { return std::ranges::count(calls_, "syncData") >= count; });
  }
  /// How many descriptors have been opened and not closed.
  int OpenDescriptors() const { return openDescriptors_; }
  /// The names of the calls since the last `Take`, in order.
  std::vector<std::string> Take() {
    const std::lock_guard lock(mutex_);
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
  int Sync(int descriptor) override {
    return FailingWhenLetGo("sync") ? -1 : Storage::Sync(descriptor);
  }
  int SyncData(int descriptor) override {
    return FailingWhenLetGo("syncData") ? -1 : Storage::SyncData(descriptor);
  }
  int Close(int descriptor) override {
    // As on Linux, the descriptor is gone even when the close fails.
    if (Storage::Close(descriptor) == 0) --openDescriptors_;
    return Failing("close") ? -1 : 0;
  }
  int Rename(const char* from, const char* to) override {
    return Failing("rename") ? -1 : Storage::Rename(from, to);
  }
  int SetMode(int descriptor, mode_t mode) override {
    return Failing("setMode") ? -1 : Storage::SetMode(descriptor, mode);
  }

 private:
  struct Fault {
    std::string name;
    int left;
    int error;
  };

  bool Failing(const std::string& call) {
    const std::lock_guard lock(mutex_);
    calls_.push_back(call);
    changed_.notify_all();
    bool failing = false;
    for (Fault& fault : faults_) {
      const bool meant = fault.name.empty() || fault.name == call;
      if (!meant || --fault.left != 0) continue;
      errno = fault.error;
      failing = true;
    }
    return failing;
  }

  bool FailingWhenLetGo(const std::string& call) {
    const bool failing = Failing(call);
    const int cause = errno;
    AwaitThat([this] { return !held_; });
    errno = cause;
    return failing;
  }

  template <typename Condition>
  void AwaitThat(Condition condition) {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(changed_.wait_for(lock, std::chrono::seconds(60), condition));
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<Fault> faults_;
  std::vector<std::string> calls_;
  std::size_t mostBytes_ = static_cast<std::size_t>(-1);
  bool held_ = false;
  std::atomic<int> openDescriptors_ = 0;
};

}  // namespace orvex::test
