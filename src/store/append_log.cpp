#include "store/append_log.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <exception>
#include <system_error>
#include <utility>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {
namespace {

/// True when the file has been deleted. Anything written to it then is lost without an error.
bool HasNoName(int descriptor) {
  struct stat status = {};
  return ::fstat(descriptor, &status) == 0 && status.st_nlink == 0;
}

}  // namespace

/// The file being written. It closes when neither the log nor a sync in progress needs it any
/// longer.
class AppendLog::OpenFile {
 public:
  OpenFile(Storage& storage, int descriptor) : storage_(storage), descriptor_(descriptor) {}
  ~OpenFile() {
    if (descriptor_ >= 0) Close();
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int Descriptor() const { return descriptor_; }
  /// The `errno` of the first sync that failed, or 0. The system reports a lost page only once, and
  /// a later sync that succeeds does not bring the page back.
  int Failure() const { return failure_; }

  /// Notes that something has been written which a `Sync` has yet to bring to the disk.
  void Expect() { due_ = true; }
  /// Syncs what was written, unless another `Sync` already has, and the names in `folders`.
  void Sync(const std::vector<std::filesystem::path>& folders) {
    if (due_.exchange(false)) {
      Note(Uninterrupted([this] { return storage_.SyncData(descriptor_); }));
    }
    for (const auto& folder : folders) Note(SyncFolder(storage_, folder));
  }
  /// Returns 0, or the `errno` of a failure.
  int Close() {
    // A close that is interrupted has still closed the file.
    return storage_.Close(std::exchange(descriptor_, -1)) == 0 || errno == EINTR ? 0 : errno;
  }

 private:
  void Note(int result) {
    if (result != 0 && failure_ == 0) failure_ = errno;
  }

  Storage& storage_;
  int descriptor_;
  std::atomic<bool> due_ = false;
  std::atomic<int> failure_ = 0;
};

AppendLog::AppendLog(Storage& storage) : storage_(storage) {}

AppendLog::~AppendLog() {
  try {
    Close();
  } catch (...) {
    // A caller who needs to know about errors calls Close() first.
  }
}

void AppendLog::Open(const std::filesystem::path& path) {
  OpenWith(path, std::nullopt);
}

void AppendLog::TakeUp(const std::filesystem::path& path) {
  std::error_code unreadable;
  OpenWith(path, std::filesystem::exists(path, unreadable) ? ReadFile(path) : "");
}

/// `content` is what the file already holds. Without it, the file is emptied.
void AppendLog::OpenWith(const std::filesystem::path& path, std::optional<std::string> content) {
  const std::lock_guard lock(mutex_);
  if (IsOpen()) WriteOutAndSync();
  // Without O_NONBLOCK a named pipe would hold up the open itself.
  constexpr int kFlags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK;
  const int descriptor = Uninterrupted([&] { return storage_.Open(path.c_str(), kFlags, 0666); });
  if (descriptor < 0) throw FileError(path, errno);
  auto file = std::make_shared<OpenFile>(storage_, descriptor);
  struct stat status = {};
  if (::fstat(descriptor, &status) != 0) throw FileError(path, errno);
  if (!S_ISREG(status.st_mode)) throw FileError(path, "not a regular file");
  std::filesystem::path name = path;
  // Truncate last, so that a failure before this leaves the old content in place.
  if (!content && Uninterrupted([&] { return storage_.Truncate(descriptor, 0); }) != 0) {
    throw FileError(path, errno);
  }
  if (IsOpen()) Release();  // everything is on the disk by now, whatever closing reports
  file_ = std::move(file);
  path_ = std::move(name);
  text_ = std::move(content).value_or("");
  written_ = text_.size();
  held_ = false;
  SyncSoon(ClassFolders(path_.parent_path()));
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

/// The part of the text that may be written: all of it, or what has been let through.
std::string_view AppendLog::Due() const {
  return std::string_view(text_).substr(0, held_ ? allowed_ : text_.size());
}

void AppendLog::Retry() {
  const std::lock_guard lock(mutex_);
  if (!IsOpen()) return;
  constexpr std::chrono::seconds kNoTime{0};
  if (putBack_.valid() && putBack_.wait_for(kNoTime) == std::future_status::ready) TakePutBack();
  WriteOut();
  if (const int failure = file_->Failure(); failure != 0) {
    GiveUpOnFile(std::generic_category().message(failure));
  }
  if (HasNoName(file_->Descriptor())) GiveUpOnFile("deleted by another program");
  if (unreliable_ && !putBack_.valid()) {
    putBack_ = writer_.Do([&storage = storage_, path = path_, text = std::string(Due())] {
      return PutBackFile(storage, path, text);
    });
  }
}

/// Writes out what is waiting.
void AppendLog::WriteOut() {
  if (!unreliable_) cause_.clear();
  const std::string_view waiting = Due().substr(written_);
  const std::size_t count = WriteAll(storage_, file_->Descriptor(), waiting);
  if (count < waiting.size()) {
    const int error = errno;
    cause_ = std::generic_category().message(error);
    if (!IsFullDisk(error)) unreliable_ = true;
  }
  written_ += count;
  if (count > 0) SyncSoon();
}

/// Has everything written so far, and the names in `folders`, synced in the background.
void AppendLog::SyncSoon(std::vector<std::filesystem::path> folders) {
  file_->Expect();
  writer_.Do([file = file_, folders = std::move(folders)] { file->Sync(folders); });
}

/// Waits until everything is synced. False when this sync or an earlier one has failed.
bool AppendLog::Sync() {
  SyncSoon();
  writer_.Await();
  return file_->Failure() == 0;
}

void AppendLog::GiveUpOnFile(std::string cause) {
  if (!unreliable_) cause_ = std::move(cause);
  unreliable_ = true;
}

/// Writes the whole text anew, durably, and opens the file to append to it.
AppendLog::PutBack AppendLog::PutBackFile(Storage& storage, const std::filesystem::path& path,
                                          const std::string& text) try {
  // The folders may have gone with the file: make and sync them before the file itself.
  const std::filesystem::path folder = path.parent_path();
  if (MakeClassFolders(storage, folder) != 0 || SyncClassFolders(storage, folder) != 0) {
    throw FileError(path, errno);
  }
  ReplaceFile(storage, path, text);
  constexpr int kFlags = O_WRONLY | O_APPEND | O_CLOEXEC;
  const int descriptor = Uninterrupted([&] { return storage.Open(path.c_str(), kFlags, 0); });
  if (descriptor < 0) throw FileError(path, errno);
  return {
      .file = std::make_shared<OpenFile>(storage, descriptor), .size = text.size(), .cause = ""};
} catch (const FileError& error) {
  return {.file = nullptr, .size = 0, .cause = error.Cause()};
} catch (const std::exception& error) {
  return {.file = nullptr, .size = 0, .cause = error.what()};
}

/// Continues with the file that has been put back. Entries added in the meantime wait to be
/// written.
void AppendLog::TakePutBack() {
  PutBack result = putBack_.get();
  if (!result.file) {
    cause_ = std::move(result.cause);
    return;
  }
  file_ = std::move(result.file);
  written_ = result.size;
  unreliable_ = false;
  cause_.clear();
}

void AppendLog::AwaitSynced() {
  if (IsOpen()) Sync();
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
  const int failure = IsOpen() ? file_->Failure() : 0;
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
  if (IsOpen()) SyncSoon(std::move(folders));
}

void AppendLog::Close() {
  const std::lock_guard lock(mutex_);
  if (!IsOpen()) return;
  WriteOutAndSync();
  if (const int cause = Release(); cause != 0) throw FileError(path_, cause);
}

/// Brings the whole text to the disk, including entries that are held back. Throws FileError.
void AppendLog::WriteOutAndSync() {
  held_ = false;
  Retry();
  Settle();
  if (cause_.empty() && !Sync()) {
    Retry();
    Settle();
  }
  if (!cause_.empty()) throw FileError(path_, cause_);
}

/// Closes the file and forgets what was wrong with it. Returns the `errno` of closing it, or 0.
int AppendLog::Release() {
  writer_.Await();
  unreliable_ = false;
  cause_.clear();
  return std::exchange(file_, nullptr)->Close();
}

}  // namespace orvex
