#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "store/storage.h"

namespace orvex::test {

/// The real disk, except that chosen calls fail or write less than asked. Syncs do not wait for the
/// medium: no test could see the difference.
class FaultyStorage : public Storage {
 public:
  /// Makes the `number`-th call from now fail with `error`, counting all calls or only those to
  /// `name`.
  void Fail(int number, int error, const std::string& name = "") {
    const std::lock_guard lock(mutex_);
    faults_.push_back({.name = name, .under = "", .left = number, .error = error});
  }
  /// Makes calls to `name` on anything in `folder` fail, from the `number`-th one on.
  void FailForGood(int number, int error, const std::string& name, const std::string& folder) {
    const std::lock_guard lock(mutex_);
    faults_.push_back(
        {.name = name, .under = folder, .left = number, .error = error, .forGood = true});
  }
  /// Ends all failures.
  void Heal() {
    const std::lock_guard lock(mutex_);
    faults_.clear();
  }
  /// The number of calls that have failed.
  int Injected() const { return injected_; }
  /// Limits each write to `bytes`.
  void LimitWrites(std::size_t bytes) { mostBytes_ = bytes; }
  /// Makes every sync wait until released, or until the test must have failed.
  void HoldSyncs(bool hold) {
    const std::lock_guard lock(mutex_);
    held_ = hold;
    changed_.notify_all();
  }
  /// Waits until `count` syncs of a log were requested since the last `Take`.
  void AwaitSyncs(int count) {
    AwaitThat([&] { return std::ranges::count(calls_, "syncData") >= count; });
  }
  /// The number of descriptors that are open.
  int OpenDescriptors() const { return openDescriptors_; }
  /// The names of the calls since the last `Take`, in order.
  std::vector<std::string> Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(calls_, {});
  }

  int Open(const char* path, int flags, mode_t mode) override {
    const int descriptor = Failing("open", path) ? -1 : Storage::Open(path, flags, mode);
    if (descriptor < 0) return descriptor;
    ++openDescriptors_;
    const std::lock_guard lock(mutex_);
    paths_[descriptor] = path;
    return descriptor;
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) override {
    if (Failing("write", descriptor)) return -1;
    return Storage::Write(descriptor, bytes, std::min(count, mostBytes_));
  }
  int Sync(int descriptor) override { return FailingWhenLetGo("sync", descriptor) ? -1 : 0; }
  int SyncData(int descriptor) override {
    return FailingWhenLetGo("syncData", descriptor) ? -1 : 0;
  }
  int Close(int descriptor) override {
    // As on Linux, the descriptor is gone even when the close fails.
    const bool failing = Failing("close", descriptor);
    const int cause = errno;
    if (Storage::Close(descriptor) == 0) --openDescriptors_;
    errno = cause;
    return failing ? -1 : 0;
  }
  int Rename(const char* from, const char* to) override {
    return Failing("rename", to) ? -1 : Storage::Rename(from, to);
  }
  int SetMode(int descriptor, mode_t mode) override {
    return Failing("setMode", descriptor) ? -1 : Storage::SetMode(descriptor, mode);
  }
  int MakeFolder(const char* path, mode_t mode) override {
    return Failing("makeFolder", path) ? -1 : Storage::MakeFolder(path, mode);
  }

 private:
  struct Fault {
    std::string name;
    std::string under;
    int left;
    int error;
    bool forGood = false;
  };

  bool Failing(const std::string& call, int descriptor) {
    std::unique_lock lock(mutex_);
    const std::string path = paths_[descriptor];
    lock.unlock();
    return Failing(call, path);
  }

  bool Failing(const std::string& call, const std::string& path) {
    const std::lock_guard lock(mutex_);
    calls_.push_back(call);
    changed_.notify_all();
    bool failing = false;
    for (Fault& fault : faults_) {
      const bool meant =
          (fault.name.empty() || fault.name == call) && path.starts_with(fault.under);
      if (!meant || --fault.left > 0 || (fault.left < 0 && !fault.forGood)) continue;
      errno = fault.error;
      failing = true;
    }
    injected_ += failing ? 1 : 0;
    return failing;
  }

  bool FailingWhenLetGo(const std::string& call, int descriptor) {
    const bool failing = Failing(call, descriptor);
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
  std::map<int, std::string> paths_;
  std::size_t mostBytes_ = static_cast<std::size_t>(-1);
  bool held_ = false;
  std::atomic<int> openDescriptors_ = 0;
  std::atomic<int> injected_ = 0;
};

}  // namespace orvex::test
