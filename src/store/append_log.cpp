#include "store/append_log.h"

#include <fcntl.h>

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {

/// Syncs a descriptor behind the back of whoever writes to it.
class AppendLog::Worker {
 public:
  Worker(Storage& storage, int descriptor)
      : storage_(storage), descriptor_(descriptor), thread_([this] { Run(); }) {}
  ~Worker() {
    {
      const std::lock_guard lock(mutex_);
      ended_ = true;
    }
    changed_.notify_all();
    thread_.join();
  }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Has what is written by now synced as soon as the disk allows.
  void SyncSoon() {
    {
      const std::lock_guard lock(mutex_);
      due_ = true;
    }
    changed_.notify_all();
  }

  /// Waits until everything is synced. Returns the first failure since the last call, or 0.
  int Finish() {
    SyncSoon();
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !due_ && !busy_; });
    return std::exchange(failure_, 0);
  }

  int Failure() const {
    const std::lock_guard lock(mutex_);
    return failure_;
  }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
      changed_.wait(lock, [this] { return due_ || ended_; });
      if (ended_) return;
      due_ = false;
      busy_ = true;
      lock.unlock();
      const int result = Uninterrupted([this] { return storage_.SyncData(descriptor_); });
      const int cause = result == 0 ? 0 : errno;
      lock.lock();
      busy_ = false;
      // The system reports a lost page once; a later sync that goes well does not bring it back.
      if (failure_ == 0) failure_ = cause;
      changed_.notify_all();
    }
  }

  Storage& storage_;
  const int descriptor_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  bool due_ = false;
  bool busy_ = false;
  bool ended_ = false;
  int failure_ = 0;
  std::thread thread_;  // last: it uses all the others
};

AppendLog::AppendLog(Storage& storage) : storage_(storage) {}

AppendLog::~AppendLog() {
  try {
    Close();
  } catch (...) {
    worker_.reset();
    if (IsOpen()) storage_.Close(descriptor_);
  }
}

void AppendLog::Open(const std::filesystem::path& path) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC;
  const int descriptor = Uninterrupted([&] { return storage_.Open(path.c_str(), kFlags, 0666); });
  if (descriptor < 0) throw FileError(path, errno);
  try {
    if (SyncFolder(storage_, path.parent_path()) != 0) throw FileError(path, errno);
    auto worker = std::make_unique<Worker>(storage_, descriptor);
    Close();
    worker_ = std::move(worker);
  } catch (const std::system_error& error) {
    storage_.Close(descriptor);
    throw FileError(path, error.code().value());
  } catch (...) {
    storage_.Close(descriptor);
    throw;
  }
  descriptor_ = descriptor;
  path_ = path;
}

void AppendLog::Append(std::string_view entry) {
  if (!IsOpen()) return;
  waiting_ += entry;
  Retry();
}

void AppendLog::Retry() {
  if (!IsOpen()) return;
  const std::size_t written = WriteAll(storage_, descriptor_, waiting_);
  failure_ = written < waiting_.size() ? errno : 0;
  waiting_.erase(0, written);
  if (written > 0) worker_->SyncSoon();
}

std::string AppendLog::Trouble() const {
  const int cause = failure_ == 0 && worker_ ? worker_->Failure() : failure_;
  return cause == 0 ? "" : FileError(path_, cause).what();
}

void AppendLog::MoveTo(const std::filesystem::path& path) {
  if (storage_.Rename(path_.c_str(), path.c_str()) != 0) throw FileError(path, errno);
  const auto oldFolder = std::exchange(path_, path).parent_path();
  // The move is done; that a power cut might still undo it is a trouble, not a failed move.
  if (SyncFolder(storage_, path_.parent_path()) != 0) failure_ = errno;
  if (oldFolder != path_.parent_path() && SyncFolder(storage_, oldFolder) != 0) failure_ = errno;
}

void AppendLog::Close() {
  if (!IsOpen()) return;
  Retry();
  if (failure_ != 0) throw FileError(path_, failure_);
  if (const int cause = worker_->Finish(); cause != 0) throw FileError(path_, cause);
  worker_.reset();
  if (storage_.Close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) {
    throw FileError(path_, errno);
  }
}

}  // namespace orvex
