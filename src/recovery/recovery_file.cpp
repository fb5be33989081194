#include "recovery/recovery_file.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "model/texts.h"
#include "recovery/kept_content.h"
#include "store/background_writer.h"
#include "store/claim.h"
#include "store/file_error.h"
#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// True when the newest whole content kept at `path` has this `number`.
bool IsNewest(const fs::path& path, std::uint64_t number) try {
  return ReadKept(path).number == number;
} catch (const std::runtime_error&) {
  return false;
}

}  // namespace

/// What is kept at a path, or on its way there. One writer hands contents to the system, the other
/// brings them to the disk. The writers own nothing but bytes, names and descriptors.
class RecoveryFile::Kept {
 public:
  using SharedClaim = std::shared_ptr<Claim>;

  Kept(Storage& storage, SharedClaim claim, std::uint64_t number)
      : storage_(storage), claim_(std::move(claim)), number_(number) {}

  const fs::path& Path() const { return claim_->Path(); }

  void Keep(std::string content) {
    {
      const std::lock_guard lock(mutex_);
      waiting_ = std::move(content);
      error_ = 0;
    }
    WriteSoon();
  }

  void Retry() {
    {
      const std::lock_guard lock(mutex_);
      if (error_ == 0 || waiting_) return;
      WriteAgain();
      error_ = 0;
    }
    WriteSoon();
  }

  int Error() const {
    const std::lock_guard lock(mutex_);
    return error_;
  }

  /// Writes the last content to its new place at once: it may be long before another is handed
  /// over.
  void MoveTo(SharedClaim claim) {
    {
      const std::lock_guard lock(mutex_);
      former_.push_back({std::exchange(claim_, std::move(claim)), number_});
      WriteAgain();
    }
    WriteSoon();
  }

  /// Moves back to a former path that has not been given up yet. False when `path` is not such a
  /// path; nothing then stands in the way of claiming it.
  bool MoveBack(const fs::path& path) {
    {
      const std::lock_guard lock(mutex_);
      const auto found = std::ranges::find_if(
          former_, [&](const FormerPath& former) { return former.claim->Path() == path; });
      if (found != former_.end()) {
        std::swap(found->claim, claim_);
        found->number = number_;
        WriteAgain();
        WriteSoon();
        return true;
      }
    }
    const std::lock_guard givenUp(givingUp_);  // wait: it may be this path that is being given up
    return false;
  }

  void AwaitWritten() { writer_.Await(); }
  void AwaitStored() {
    writer_.Await();
    storer_.Await();
  }

  void WhenWritten(const std::function<void()>& then) {
    {
      const std::lock_guard lock(mutex_);
      const bool isWritten = writer_.IsIdle() && !full_;
      then_ = isWritten ? nullptr : then;
      if (!isWritten) return WriteSoon();
    }
    then();
  }

  /// Removes what is kept. To be called when nothing is under way any more. Returns the first
  /// `errno`, or 0.
  int Remove() {
    former_.push_back({std::move(claim_), number_});
    int error = 0;
    Sync(GiveUp(former_, error), error);
    return error;
  }

 private:
  /// A content that the system has, on its way to the disk.
  struct Written {
    fs::path temporary;
    fs::path target;
    std::uint64_t number = 0;
    int descriptor = -1;
  };
  /// A path that was left after the content `number`. Any later content replaces what is there.
  struct FormerPath {
    SharedClaim claim;
    std::uint64_t number = 0;
  };
  using Lock = std::unique_lock<std::mutex>;

  void WriteSoon() {
    writer_.Do([this] { Write(); });
  }

  void Write() {
    Lock lock(mutex_);
    if (waiting_) WriteNewest(lock);
    if (full_ || waiting_ || !then_) return;
    const auto then = std::exchange(then_, nullptr);
    lock.unlock();
    then();
  }

  void WriteNewest(Lock& lock) {
    last_ = *std::exchange(waiting_, std::nullopt);
    const SharedClaim claim = claim_;
    Written made = {.temporary = claim->Path(), .target = claim->Path(), .number = ++number_};
    made.temporary += "." + std::to_string(made.number);
    const std::string bytes = Sealed(last_, made.number);
    lock.unlock();
    made.descriptor = OpenTemporary(made.temporary);
    int error = made.descriptor < 0 ? errno : 0;
    if (error == 0 && WriteAll(storage_, made.descriptor, bytes) < bytes.size()) error = errno;
    claim->Renew();
    std::optional<Written> overtaken = std::move(made);
    lock.lock();
    full_ = IsFullDisk(error);
    if (error != 0) {
      error_ = error;
    } else {
      std::swap(overtaken, written_);
    }
    lock.unlock();
    if (overtaken) Drop(*overtaken);
    storer_.Do([this] { Store(); });
    lock.lock();
  }

  void Store() {
    Lock lock(mutex_);
    if (!written_) return;
    const Written written = *std::exchange(written_, std::nullopt);
    lock.unlock();
    const int error = BringToItsPlace(written);
    storage_.Close(written.descriptor);
    if (!stuck_.empty()) storage_.Unlink(stuck_.c_str());
    stuck_.clear();
    lock.lock();
    if (error != 0) {
      error_ = error;
      stuck_ = written.temporary;  // perhaps the newest there is: it stays until the next one
      return;
    }
    std::vector<FormerPath> replaced;
    std::erase_if(former_, [&](const FormerPath& former) {
      const bool isReplaced = former.number < written.number;
      if (isReplaced) replaced.push_back(former);
      return isReplaced;
    });
    Lock givingUp(givingUp_);
    lock.unlock();
    int untold = 0;  // not reported: what stays there is older than what is kept
    const std::vector<fs::path> folders = GiveUp(replaced, untold);
    givingUp.unlock();
    Sync(folders, untold);
  }

  /// Creates a new file at `path`. Anything already there, even a link, is removed first.
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

  /// Syncs the content and moves it to its place. Returns 0, or the `errno` of what went wrong.
  int BringToItsPlace(const Written& written) {
    const bool done = Uninterrupted([&] { return storage_.Sync(written.descriptor); }) == 0 &&
                      storage_.Rename(written.temporary.c_str(), written.target.c_str()) == 0 &&
                      SyncName(written.target.parent_path()) == 0;
    return done ? 0 : errno;
  }

  /// Brings the new name in `folder` to the disk and, the first time, also the folder's own name.
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

  void Drop(const Written& written) {
    if (written.descriptor < 0) return;
    storage_.Close(written.descriptor);
    storage_.Unlink(written.temporary.c_str());
  }

  /// Gives up the paths and removes what is kept there. Returns their folders, which the caller
  /// must sync, and sets `error` to the first `errno` if it is still 0.
  std::vector<fs::path> GiveUp(std::vector<FormerPath>& paths, int& error) {
    std::vector<fs::path> folders;
    for (const auto& [claim, number] : paths) {
      for (const fs::path& file : FilesKeptAt(claim->Path())) {
        if (storage_.Unlink(file.c_str()) != 0 && errno != ENOENT && error == 0) error = errno;
      }
      folders.push_back(claim->Path().parent_path());
    }
    paths.clear();
    return folders;
  }

  void Sync(const std::vector<fs::path>& folders, int& error) {
    for (const fs::path& folder : folders) {
      if (SyncFolder(storage_, folder) != 0 && errno != ENOENT && error == 0) error = errno;
    }
  }

  Storage& storage_;
  mutable std::mutex mutex_;
  SharedClaim claim_;
  std::vector<FormerPath> former_;
  std::uint64_t number_;
  std::optional<std::string> waiting_;  ///< not written yet
  std::string last_;                    ///< the content written last
  std::optional<Written> written_;      ///< not stored yet
  fs::path stuck_;                      ///< the temporary that could not be stored last
  fs::path named_;                      ///< the folder whose own name is on the disk
  std::function<void()> then_;          ///< called once everything is written
  int error_ = 0;
  bool full_ = false;    ///< the disk was too full for the last content
  std::mutex givingUp_;  ///< held while former paths are given up
  // Last, as they use all other members. The writer is destroyed first and leaves what it wrote to
  // the storer.
  BackgroundWriter storer_;
  BackgroundWriter writer_;
};

RecoveryFile::RecoveryFile(Storage& storage) : storage_(storage) {}

RecoveryFile::~RecoveryFile() = default;

std::shared_ptr<Claim> RecoveryFile::FreshClaim(const fs::path& path) {
  auto claim = std::make_shared<Claim>(path);
  if (IsKeptAt(path)) {
    throw FileError(path, Say(Text::keepsClass));
  }
  return claim;
}

void RecoveryFile::Begin(const fs::path& path) {
  kept_ = std::make_unique<Kept>(storage_, FreshClaim(path), 0);
}

void RecoveryFile::TakeUp(const fs::path& path, std::uint64_t number) {
  auto claim = std::make_shared<Claim>(path);
  if (!IsNewest(path, number)) {
    throw FileError(path, Say(Text::changedMeanwhile));
  }
  kept_ = std::make_unique<Kept>(storage_, std::move(claim), number);
}

void RecoveryFile::MoveTo(const fs::path& path) {
  if (!kept_ || path == kept_->Path() || kept_->MoveBack(path)) return;
  kept_->MoveTo(FreshClaim(path));
}

void RecoveryFile::Keep(std::string content) {
  if (kept_) kept_->Keep(std::move(content));
}

void RecoveryFile::WhenWritten(const std::function<void()>& then) {
  kept_ ? kept_->WhenWritten(then) : then();
}

void RecoveryFile::Retry() {
  if (kept_) kept_->Retry();
}

std::string RecoveryFile::Trouble() const {
  const int error = kept_ ? kept_->Error() : 0;
  return error == 0 ? "" : FileError(kept_->Path(), error).what();
}

void RecoveryFile::AwaitWritten() {
  if (kept_) kept_->AwaitWritten();
}

void RecoveryFile::AwaitStored() {
  if (kept_) kept_->AwaitStored();
}

void RecoveryFile::Leave() {
  kept_.reset();
}

void RecoveryFile::Remove() {
  if (!kept_) return;
  AwaitStored();
  const fs::path path = kept_->Path();
  const int error = kept_->Remove();
  kept_.reset();
  if (error != 0) throw FileError(path, error);
}

}  // namespace orvex
