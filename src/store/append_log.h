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

/// A text file that grows by whole entries. Each entry is handed to the system in one write before
/// `Append` returns; a background writer that owns nothing but the descriptor syncs it at once, as
/// fast as the disk allows. The whole text since `Open` is kept in memory: an entry that cannot be
/// written goes out with the next, and a file that can no longer be relied on (a write failed
/// though the disk is not full, a sync failed, its stick was pulled out, it was deleted) is put
/// back whole, with the folders of its class. One thread works with it; only `LetThrough` may come
/// from another.
class AppendLog {
 public:
  explicit AppendLog(Storage& storage);
  ~AppendLog();
  AppendLog(const AppendLog&) = delete;
  AppendLog& operator=(const AppendLog&) = delete;

  /// Opens `path` empty, replacing what was there; a log open before is written out, synced and
  /// closed. Throws FileError, also for anything that is not a regular file; a file at `path` then
  /// keeps its content, and a log open before stays open. That its name, or its folder's, did not
  /// reach the disk turns up later, as a trouble.
  void Open(const std::filesystem::path& path);
  /// Opens `path` as it is, or empty when there is none, to go on behind what it holds.
  void TakeUp(const std::filesystem::path& path);
  bool IsOpen() const { return file_ != nullptr; }
  const std::filesystem::path& Path() const { return path_; }

  /// Adds an entry, line ends included. A failure is no exception but a trouble: what could not be
  /// written waits in memory.
  void Append(std::string_view entry);

  /// From now on entries wait in memory until they are let through.
  void HoldEntries();
  /// Lets the entries go out that stand before `end`, an `End` of before. For any thread.
  void LetThrough(std::size_t end);
  /// Where the text ends by now.
  std::size_t End() const { return text_.size(); }

  /// Tries again to write what waits in memory. A file that cannot be relied on is put back behind
  /// the scenes; what comes of that shows with a later entry or retry.
  void Retry();
  /// Waits for a file that is being put back.
  void Settle();
  /// Waits until what went out is on the disk, or has failed.
  void AwaitSynced();

  /// Why the last write failed, or something written did not reach the disk, "<path>: <cause>";
  /// empty while all is well. What did not reach the disk stays a trouble until the whole text has
  /// been written anew.
  std::string Trouble() const;

  /// Moves the file to `path`, over a file that is there, and goes on appending to it. Throws
  /// FileError; the log then stays as it is. That the move itself did not reach the disk turns up
  /// later, as a trouble.
  void MoveTo(const std::filesystem::path& path);

  /// Writes what waits, syncs and closes; what a sync has lost is written anew first. Throws
  /// FileError when something did not reach the disk; the log then stays open and can be closed
  /// again. Only when the closing itself reports an error, the log is closed all the same.
  void Close();

 private:
  class OpenFile;

  void OpenWith(const std::filesystem::path& path, std::optional<std::string> content);
  /// What came of putting a file back: opened at its end, or why it is not.
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
  mutable std::recursive_mutex mutex_;  ///< for what `LetThrough` reads or changes
  std::filesystem::path path_;
  std::shared_ptr<OpenFile> file_;
  std::string text_;              ///< all since `Open`
  std::size_t written_ = 0;       ///< how much of it has gone out
  bool held_ = false;             ///< entries wait to be let through
  std::size_t allowed_ = 0;       ///< how much may go out then
  bool unreliable_ = false;       ///< the file must be put back
  std::string cause_;             ///< why the last attempt failed; empty when it went well
  std::future<PutBack> putBack_;  ///< while the file is being put back
  BackgroundWriter writer_;
};

}  // namespace orvex
