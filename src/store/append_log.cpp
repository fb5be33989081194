#include "store/append_log.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {
namespace {

/// True when the file has been deleted: what is written to it then is lost without an error.
bool HasNoName(int descriptor) {
  struct stat status = {};
  return ::fstat(descriptor, &status) == 0 && status.st_nlink == 0;
}

}  // namespace

/// Syncs a descriptor, and folders, behind the back of whoever writes to them.
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

  /// The same for the names in `folders`.
  void SyncSoon(std::vector<std::filesystem::path> folders) {
    {
      const std::lock_guard lock(mutex_);
      due_ = true;
      folders_.insert(folders_.end(), folders.begin(), folders.end());
    }
    changed_.notify_all();
  }

  /// Waits until everything is synced. Returns the first failure ever, or 0.
  int Finish() {
    SyncSoon();
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !due_ && !busy_; });
    return failure_;
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
      const auto folders = std::exchange(folders_, {});
      lock.unlock();
      int cause = 0;
      const auto note = [&cause](int result) {
        if (result != 0 && cause == 0) cause = errno;
      };
      note(Uninterrupted([this] { return storage_.SyncData(descriptor_); }));
      for (const auto& folder : folders) note(SyncFolder(storage_, folder));
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
  std::vector<std::filesystem::path> folders_;
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
    if (IsOpen()) Release();
  }
}

void AppendLog::Open(const std::filesystem::path& path) {
  OpenWith(path, std::nullopt);
}

void AppendLog::GoOn(const std::filesystem::path& path) {
  std::error_code unreadable;
  OpenWith(path, std::filesystem::exists(path, unreadable) ? ReadFile(path) : "");
}

/// Without the `content` that is there already, the file is emptied.
void AppendLog::OpenWith(const std::filesystem::path& path, std::optional<std::string> content) {
  const std::lock_guard lock(mutex_);
  if (IsOpen()) WriteOutAndSync();
  // Without O_NONBLOCK a named pipe would hold up the open itself.
  constexpr int kFlags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK;
  const int descriptor = Uninterrupted([&] { return storage_.Open(path.c_str(), kFlags, 0666); });
  if (descriptor < 0) throw FileError(path, errno);
  try {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) throw FileError(path, errno);
    if (!S_ISREG(status.st_mode)) throw FileError(path, "not a regular file");
    auto worker = std::make_unique<Worker>(storage_, descriptor);
    std::filesystem::path name = path;
    // Last, so that whatever fails leaves the old content.
    if (!content && Uninterrupted([&] { return storage_.Truncate(descriptor, 0); }) != 0) {
      throw FileError(path, errno);
    }
    worker->SyncSoon(ClassFolders(path.parent_path()));
    if (IsOpen()) Release();  // all of it is on the disk by now, whatever the closing reports
    worker_ = std::move(worker);
    path_ = std::move(name);
  } catch (const std::system_error& error) {
    storage_.Close(descriptor);
    throw FileError(path, error.code().value());
  } catch (...) {
    storage_.Close(descriptor);
    throw;
  }
  descriptor_ = descriptor;
  text_ = std::move(content).value_or("");
  written_ = text_.size();
  held_ = false;
}

void AppendLog::Append(std::string_view entry) {
  const std::lock_guard lock(mutex_);
  if (!IsOpen()) return;
  text_ += entry;
  Retry();
}

void AppendLog::HoldEntries() {
  const std::lock_guard lock(mutex_);
  if (held_ || !IsOpen()) return;
  held_ = true;
  allowed_ = text_.size();
}

void AppendLog::LetThrough(std::size_t end) {
  const std::lock_guard lock(mutex_);
  if (!held_ || end <= allowed_) return;
  allowed_ = end;
  WriteOut();
}

/// As much of the text as may have gone out.
std::string_view AppendLog::Due() const {
  return std::string_view(text_).substr(0, held_ ? allowed_ : text_.size());
}

void AppendLog::Retry() {
  const std::lock_guard lock(mutex_);
  if (!IsOpen()) return;
  constexpr std::chrono::seconds kNoTime{0};
  if (putBack_.valid() && putBack_.wait_for(kNoTime) == std::future_status::ready) TakePutBack();
  WriteOut();
  if (const int failure = worker_->Failure(); failure != 0) {
    GiveUpOnFile(std::generic_category().message(failure));
  }
  if (HasNoName(descriptor_)) GiveUpOnFile("deleted by another program");
  if (unreliable_ && !putBack_.valid()) {
    putBack_ =
        std::async(std::launch::async, PutBackFile, std::ref(storage_), path_, std::string(Due()));
  }
}

/// Hands what waits to the system.
void AppendLog::WriteOut() {
  if (!unreliable_) cause_.clear();
  const std::string_view waiting = Due().substr(written_);
  const std::size_t count = WriteAll(storage_, descriptor_, waiting);
  if (count < waiting.size()) {
    const int error = errno;
    cause_ = std::generic_category().message(error);
    if (!IsFullDisk(error)) unreliable_ = true;
  }
  written_ += count;
  if (count > 0) worker_->SyncSoon();
}

void AppendLog::GiveUpOnFile(std::string cause) {
  if (!unreliable_) cause_ = std::move(cause);
  unreliable_ = true;
}

/// Writes the whole text anew, durably, and opens the file to go on behind it.
AppendLog::PutBack AppendLog::PutBackFile(Storage& storage, const std::filesystem::path& path,
                                          const std::string& text) try {
  // Where its folders have gone, so has the file; that they are there again is on the disk first.
  const std::filesystem::path folder = path.parent_path();
  if (MakeClassFolders(storage, folder) != 0 || SyncClassFolders(storage, folder) != 0) {
    throw FileError(path, errno);
  }
  ReplaceFile(storage, path, text);
  constexpr int kFlags = O_WRONLY | O_APPEND | O_CLOEXEC;
  const int descriptor = Uninterrupted([&] { return storage.Open(path.c_str(), kFlags, 0); });
  if (descriptor < 0) throw FileError(path, errno);
  return {.descriptor = descriptor, .size = text.size(), .cause = ""};
} catch (const FileError& error) {
  return {.descriptor = -1, .size = 0, .cause = error.Cause()};
} catch (const std::exception& error) {
  return {.descriptor = -1, .size = 0, .cause = error.what()};
}

/// Goes on with the file that has been put back. What came in the meantime waits again.
void AppendLog::TakePutBack() {
  const PutBack result = putBack_.get();
  if (result.descriptor < 0) {
    cause_ = result.cause;
    return;
  }
  std::unique_ptr<Worker> worker;
  try {
    worker = std::make_unique<Worker>(storage_, result.descriptor);
  } catch (const std::system_error& error) {
    storage_.Close(result.descriptor);
    cause_ = error.what();
    return;
  }
  Release();
  worker_ = std::move(worker);
  descriptor_ = result.descriptor;
  written_ = result.size;
}

void AppendLog::AwaitSynced() {
  if (worker_) worker_->Finish();
}

void AppendLog::Settle() {
  const std::lock_guard lock(mutex_);
  if (!putBack_.valid()) return;
  TakePutBack();
  WriteOut();
}

std::string AppendLog::Trouble() const {
  const std::lock_guard lock(mutex_);
  if (!cause_.empty()) return FileError(path_, cause_).what();
  const int failure = worker_ ? worker_->Failure() : 0;
  return failure == 0 ? "" : FileError(path_, failure).what();
}

void AppendLog::MoveTo(const std::filesystem::path& path) {
  const std::lock_guard lock(mutex_);
  Settle();
  std::filesystem::path name = path;
  std::vector<std::filesystem::path> folders = ClassFolders(path.parent_path());
  if (path_.parent_path() != path.parent_path()) folders.push_back(path_.parent_path());
  if (storage_.Rename(path_.c_str(), path.c_str()) != 0) throw FileError(path, errno);
  path_ = std::move(name);
  if (worker_) worker_->SyncSoon(std::move(folders));
}

void AppendLog::Close() {
  const std::lock_guard lock(mutex_);
  if (!IsOpen()) return;
  WriteOutAndSync();
  if (const int cause = Release(); cause != 0) throw FileError(path_, cause);
}

/// Brings the whole text to the disk, whatever is held back. Throws FileError.
void AppendLog::WriteOutAndSync() {
  held_ = false;
  Retry();
  Settle();
  if (cause_.empty() && worker_->Finish() != 0) {
    Retry();
    Settle();
  }
  if (!cause_.empty()) throw FileError(path_, cause_);
}

/// Gives up the descriptor, its worker and what was wrong with them. Returns the `errno` of the
/// closing, or 0.
int AppendLog::Release() {
  worker_.reset();
  unreliable_ = false;
  cause_.clear();
  // An interrupted close has closed the file.
  return storage_.Close(std::exchange(descriptor_, -1)) == 0 || errno == EINTR ? 0 : errno;
}

}  // namespace orvex
