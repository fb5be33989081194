#include "recovery/recovery_file.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "recovery/claim.h"
#include "recovery/kept_content.h"
#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// True when the content `number` is the newest that is kept at `path`, and whole.
bool IsNewest(const fs::path& path, std::uint64_t number) try {
  return ReadKept(path).number == number;
} catch (const std::runtime_error&) {
  return false;
}

}  // namespace

/// The two workers: the writer, which brings contents into the system's hands, and the storer,
/// which brings them to the disk. They own nothing but bytes, names and descriptors.
class RecoveryFile::Workers {
 public:
  using SharedClaim = std::shared_ptr<Claim>;

  Workers(Storage& storage, SharedClaim claim, std::uint64_t number)
      : storage_(storage),
        claim_(std::move(claim)),
        number_(number),
        writer_(
            [this] { Run(&Workers::Write, writing_, [this] { return waiting_.has_value(); }); }),
        storer_(
            [this] { Run(&Workers::Store, storing_, [this] { return written_.has_value(); }); }) {}

  ~Workers() {
    Await(&Workers::Stored);
    {
      const std::lock_guard lock(mutex_);
      ended_ = true;
    }
    changed_.notify_all();
    writer_.join();
    storer_.join();
    if (written_) Drop(*written_);
  }
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  const fs::path& Path() const { return claim_->Path(); }

  void Keep(std::string content) {
    {
      const std::lock_guard lock(mutex_);
      waiting_ = std::move(content);
      error_ = 0;
    }
    changed_.notify_all();
  }

  void Retry() {
    {
      const std::lock_guard lock(mutex_);
      if (error_ == 0 || waiting_) return;
      WriteAgain();
      error_ = 0;
    }
    changed_.notify_all();
  }

  int Error() const {
    const std::lock_guard lock(mutex_);
    return error_;
  }

  /// What was kept last is written to its new place at once: nobody may hand over another soon.
  void MoveTo(SharedClaim claim) {
    {
      const std::lock_guard lock(mutex_);
      left_.push_back({std::exchange(claim_, std::move(claim)), number_});
      WriteAgain();
    }
    changed_.notify_all();
  }

  /// Back to a path that has been left, but not yet given up. False when `path` is none.
  bool MoveBack(const fs::path& path) {
    {
      const std::lock_guard lock(mutex_);
      const auto found =
          std::ranges::find_if(left_, [&](const Left& left) { return left.claim->Path() == path; });
      if (found == left_.end()) return false;
      std::swap(found->claim, claim_);
      found->number = number_;
      WriteAgain();
    }
    changed_.notify_all();
    return true;
  }

  /// Nothing is left to do for the writer; and nothing for both.
  bool Written() const { return !waiting_ && !writing_; }
  bool Stored() const { return Written() && !written_ && !storing_; }
  /// No path is just being given up.
  bool Removed() const { return !removing_; }
  void Await(bool (Workers::*done)() const) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return (this->*done)(); });
  }

  void WhenWritten(std::function<void()> then) {
    {
      const std::lock_guard lock(mutex_);
      if (!Written() || full_) {
        then_ = std::move(then);
        return;
      }
    }
    then();
  }

  /// Removes what is kept. Nothing is under way any more. Returns the first `errno`, or 0.
  int Remove() {
    left_.push_back({std::move(claim_), number_});
    std::vector<fs::path> folders;
    const int error = Unlink(left_, folders);
    const int unsynced = SyncAll(folders);
    return error != 0 ? error : unsynced;
  }

 private:
  /// A content in the system's hands, on its way to the disk.
  struct Parcel {
    fs::path temporary;
    fs::path target;
    std::uint64_t number = 0;
    int descriptor = -1;
  };
  /// A path that the class has left after the content `number`. A later one replaces what is there.
  struct Left {
    SharedClaim claim;
    std::uint64_t number = 0;
  };
  using Lock = std::unique_lock<std::mutex>;

  template <typename Due>
  void Run(void (Workers::*work)(Lock&), bool& busy, Due due) {
    Lock lock(mutex_);
    for (;;) {
      changed_.wait(lock, [&] { return due() || ended_; });
      if (ended_) return;
      busy = true;
      (this->*work)(lock);
      busy = false;
      changed_.notify_all();
    }
  }

  void Write(Lock& lock) {
    last_ = *std::exchange(waiting_, std::nullopt);
    const SharedClaim claim = claim_;
    Parcel made = {.temporary = claim->Path(), .target = claim->Path(), .number = ++number_};
    made.temporary += "." + std::to_string(made.number);
    const std::string bytes = Sealed(last_, made.number);
    lock.unlock();
    made.descriptor = OpenTemporary(made.temporary);
    int error = made.descriptor < 0 ? errno : 0;
    if (error == 0 && WriteAll(storage_, made.descriptor, bytes) < bytes.size()) error = errno;
    claim->Renew();
    std::optional<Parcel> overtaken = std::move(made);
    lock.lock();
    full_ = IsFullDisk(error);
    if (error != 0) {
      error_ = error;
    } else {
      std::swap(overtaken, written_);
    }
    lock.unlock();
    if (overtaken) Drop(*overtaken);
    lock.lock();
    // Another may be asked for while one is done.
    while (then_ && !full_ && !waiting_) {
      const auto then = std::exchange(then_, nullptr);
      lock.unlock();
      then();
      lock.lock();
    }
  }

  void Store(Lock& lock) {
    const Parcel parcel = *std::exchange(written_, std::nullopt);
    lock.unlock();
    const int error = BringToItsPlace(parcel);
    storage_.Close(parcel.descriptor);
    if (!stuck_.empty()) storage_.Unlink(stuck_.c_str());
    stuck_.clear();
    lock.lock();
    if (error != 0) {
      error_ = error;
      stuck_ = parcel.temporary;  // it may be the newest there is: it stays until the next one
      return;
    }
    const auto first = std::partition(
        left_.begin(), left_.end(), [&](const Left& left) { return left.number >= parcel.number; });
    std::vector<Left> replaced(std::make_move_iterator(first),
                               std::make_move_iterator(left_.end()));
    left_.erase(first, left_.end());
    removing_ = !replaced.empty();
    lock.unlock();
    std::vector<fs::path> folders;
    Unlink(replaced, folders);
    lock.lock();
    removing_ = false;
    changed_.notify_all();
    lock.unlock();
    SyncAll(folders);
    lock.lock();
  }

  /// A new file that nobody has put there: what has its name, also a link, gives way.
  int OpenTemporary(const fs::path& path) {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const auto open = [&] {
      return Uninterrupted([&] { return storage_.Open(path.c_str(), kFlags, 0666); });
    };
    const int descriptor = open();
    if (descriptor >= 0) return descriptor;
    bool again = errno == EEXIST && storage_.Unlink(path.c_str()) == 0;
    if (errno == ENOENT && MakeClassFolders(storage_, path.parent_path()) == 0) {
      ForgetName();
      again = true;
    }
    return again ? open() : -1;
  }

  void WriteAgain() {
    if (!waiting_ && !last_.empty()) waiting_ = last_;
  }

  /// Returns the `errno` of what went wrong, or 0.
  int BringToItsPlace(const Parcel& parcel) {
    const bool done = Uninterrupted([&] { return storage_.Sync(parcel.descriptor); }) == 0 &&
                      storage_.Rename(parcel.temporary.c_str(), parcel.target.c_str()) == 0 &&
                      SyncName(parcel.target.parent_path()) == 0;
    return done ? 0 : errno;
  }

  /// Brings the new name in `folder` to the disk, and the first time the folder's own.
  int SyncName(const fs::path& folder) {
    Lock lock(mutex_);
    const bool known = std::exchange(named_, folder) == folder;
    lock.unlock();
    if (known) return SyncFolder(storage_, folder);
    const int result = SyncClassFolders(storage_, folder);
    if (result != 0) ForgetName();
    return result;
  }

  void ForgetName() {
    const std::lock_guard lock(mutex_);
    named_.clear();
  }

  void Drop(const Parcel& parcel) {
    if (parcel.descriptor < 0) return;
    storage_.Close(parcel.descriptor);
    storage_.Unlink(parcel.temporary.c_str());
  }

  /// Gives the paths up with what is kept there; their `folders` are to be synced. Returns the
  /// first `errno`, or 0.
  int Unlink(std::vector<Left>& left, std::vector<fs::path>& folders) {
    int error = 0;
    for (const auto& [claim, number] : left) {
      for (const fs::path& file : FilesKeptAt(claim->Path())) {
        if (storage_.Unlink(file.c_str()) != 0 && errno != ENOENT && error == 0) error = errno;
      }
      folders.push_back(claim->Path().parent_path());
    }
    left.clear();
    return error;
  }

  int SyncAll(const std::vector<fs::path>& folders) {
    int error = 0;
    for (const fs::path& folder : folders) {
      if (SyncFolder(storage_, folder) != 0 && errno != ENOENT && error == 0) error = errno;
    }
    return error;
  }

  Storage& storage_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  SharedClaim claim_;
  std::vector<Left> left_;
  std::uint64_t number_;
  std::optional<std::string> waiting_;  ///< for the writer
  std::string last_;                    ///< what the writer took last
  std::optional<Parcel> written_;       ///< for the storer
  fs::path stuck_;                      ///< the storer's: what it could not store last
  fs::path named_;                      ///< the folder whose own name is on the disk
  std::function<void()> then_;          ///< once all is written
  int error_ = 0;
  bool full_ = false;  ///< the disk was too full for what the writer took last
  bool removing_ = false;
  bool writing_ = false;
  bool storing_ = false;
  bool ended_ = false;
  std::thread writer_;  // last: they use all the others
  std::thread storer_;
};

RecoveryFile::RecoveryFile(Storage& storage) : storage_(storage) {}

RecoveryFile::~RecoveryFile() = default;

std::shared_ptr<Claim> RecoveryFile::FreshClaim(const fs::path& path) {
  auto claim = std::make_shared<Claim>(path);
  if (IsKeptAt(path)) {
    throw FileError(path, "keeps a class that was not ended");
  }
  return claim;
}

void RecoveryFile::Begin(const fs::path& path) {
  workers_ = std::make_unique<Workers>(storage_, FreshClaim(path), 0);
}

void RecoveryFile::GoOn(const fs::path& path, std::uint64_t number) {
  auto claim = std::make_shared<Claim>(path);
  if (!IsNewest(path, number)) {
    throw FileError(path, "changed by another Orvex in the meantime");
  }
  workers_ = std::make_unique<Workers>(storage_, std::move(claim), number);
}

void RecoveryFile::MoveTo(const fs::path& path) {
  if (!workers_ || path == workers_->Path() || workers_->MoveBack(path)) return;
  workers_->Await(&Workers::Removed);  // perhaps from there
  workers_->MoveTo(FreshClaim(path));
}

void RecoveryFile::Keep(std::string content) {
  if (workers_) workers_->Keep(std::move(content));
}

void RecoveryFile::WhenWritten(std::function<void()> then) {
  workers_ ? workers_->WhenWritten(std::move(then)) : then();
}

void RecoveryFile::Retry() {
  if (workers_) workers_->Retry();
}

std::string RecoveryFile::Trouble() const {
  const int error = workers_ ? workers_->Error() : 0;
  return error == 0 ? "" : FileError(workers_->Path(), error).what();
}

void RecoveryFile::AwaitWritten() {
  if (workers_) workers_->Await(&Workers::Written);
}

void RecoveryFile::AwaitStored() {
  if (workers_) workers_->Await(&Workers::Stored);
}

void RecoveryFile::Leave() {
  workers_.reset();
}

void RecoveryFile::Remove() {
  if (!workers_) return;
  AwaitStored();
  const fs::path path = workers_->Path();
  const int error = workers_->Remove();
  workers_.reset();
  if (error != 0) throw FileError(path, error);
}

}  // namespace orvex
