#pragma once

#include <cstddef>
#include <filesystem>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/background_writer.h"

namespace orvex {

class Storage;

/// A text file that grows by whole entries. `Append` hands each entry to the system in one write
/// before it returns, unless entries are held; a background writer, which owns nothing but the
/// descriptor, syncs it as soon as the disk allows. The whole text since `Open` stays in memory. An
/// entry that cannot be written goes out with the next one. A file that can no longer be relied on
/// (a write failed although the disk is not full, a sync failed, its stick was pulled out, it was
/// deleted) is put back whole, together with its class folders. Use it from one thread; only
/// `LetThrough` may be called from another.
class AppendLog {
 public:
  explicit AppendLog(Storage& storage);
  ~AppendLog();
  AppendLog(const AppendLog&) = delete;
  AppendLog& operator=(const AppendLog&) = delete;

  /// Opens `path` empty, replacing what was there. A log that is already open is first written out,
  /// synced and closed. Throws FileError, also when `path` is not a regular file; a file at `path`
  /// then keeps its content, and the log that was open stays open. If the file's name, or its
  /// folder's, does not reach the disk, `Trouble` reports it later.
  void Open(const std::filesystem::path& path);
  /// Opens `path` to append to what it holds, or empty when there is no such file. Otherwise like
  /// `Open`.
  void TakeUp(const std::filesystem::path& path);
  bool IsOpen() const { return file_ != nullptr; }
  const std::filesystem::path& Path() const { return path_; }

  /// Adds an entry, line ends included. A failed write does not throw: what could not be written
  /// waits in memory, and `Trouble` says why.
  void Append(std::string_view entry);

  /// From now on, entries wait in memory until they are let through.
  void HoldEntries();
  /// Lets out the entries before `end`, a value that `End` returned earlier. For any thread.
  void LetThrough(std::size_t end);
  /// The length of the text so far, in bytes.
  std::size_t End() const { return text_.size(); }

  /// Tries again to write what waits in memory. A file that cannot be relied on is put back in the
  /// background; a later `Append` or `Retry` picks up the result.
  void Retry();
  /// Waits until a file that is being put back is there again, or could not be put back.
  void Settle();
  /// Waits until everything written out is on the disk, or has failed to get there.
  void AwaitSynced();

  /// "<path>: <cause>": why the last write failed, or why something written did not reach the disk.
  /// Empty while all is well. What did not reach the disk remains a trouble until the whole text
  /// has been written anew.
  std::string Trouble() const;

  /// Moves the file to `path`, replacing any file there, and continues appending to it. Throws
  /// FileError; the log then stays as it is. If the move itself does not reach the disk, `Trouble`
  /// reports it later.
  void MoveTo(const std::filesystem::path& path);

  /// Writes out what is waiting, syncs and closes. What a sync has lost is written anew first.
  /// Throws FileError when something did not reach the disk; the log then stays open and can be
  /// closed again. Only an error from closing itself leaves the log closed.
  void Close();

 private:
  class OpenFile;

  void OpenWith(const std::filesystem::path& path, std::optional<std::string> content);
  /// The result of putting a file back: the reopened file, or why there is none.
  struct PutBack {
    std::shared_ptr<OpenFile> file;
    std::size_t size = 0;
    std::string cause;
  };
  static PutBack PutBackFile(Storage& storage, const std::filesystem::path& path,
                             const std::string& text);

  std::string_view Due() const;
  void WriteOut();
  void SyncSoon(std::vector<std::filesystem::path> folders = {});
  bool Sync();
  void WriteOutAndSync();
  void GiveUpOnFile(std::string cause);
  void TakePutBack();
  int Release();

  Storage& storage_;
  mutable std::recursive_mutex mutex_;  ///< guards what `LetThrough` reads or changes
  std::filesystem::path path_;
  std::shared_ptr<OpenFile> file_;
  std::string text_;              ///< everything since `Open`
  std::size_t written_ = 0;       ///< how many bytes of it have been written out
  bool held_ = false;             ///< entries wait to be let through
  std::size_t allowed_ = 0;       ///< how many bytes may be written out while they wait
  bool unreliable_ = false;       ///< the file must be put back
  std::string cause_;             ///< why the last attempt failed; empty when it went well
  std::future<PutBack> putBack_;  ///< while the file is being put back
  BackgroundWriter writer_;
};

}  // namespace orvex
