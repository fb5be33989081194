#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// A text file that grows by whole entries. Each entry is handed to the system in one write before
/// `Append` returns, and is on the disk within a second; a worker thread that knows nothing but the
/// descriptor sees to that. An entry that cannot be written is kept and goes out with the next.
class AppendLog {
 public:
  explicit AppendLog(Storage& storage);
  ~AppendLog();
  AppendLog(const AppendLog&) = delete;
  AppendLog& operator=(const AppendLog&) = delete;

  /// Opens `path` empty, replacing what was there; a log open before is closed. Throws FileError; a
  /// log open before stays open.
  void Open(const std::filesystem::path& path);
  bool IsOpen() const { return descriptor_ >= 0; }
  const std::filesystem::path& Path() const { return path_; }

  /// Adds an entry, line ends included. Never throws: what could not be written waits in memory.
  void Append(std::string_view entry);

  /// Tries again to write what waits in memory.
  void Retry();

  /// Why the last write failed, or an earlier one did not reach the disk, "<path>: <cause>"; empty
  /// while everything is written. What did not reach the disk stays a trouble until `Close`.
  std::string Trouble() const;

  /// Moves the file to `path`, over a file that is there, and goes on appending to it. Throws
  /// FileError; the log then stays as it is.
  void MoveTo(const std::filesystem::path& path);

  /// Writes what waits, syncs and closes. Throws FileError when something could not be written; the
  /// log then stays open and can be closed again. Only when the closing itself reports an error,
  /// the log is closed all the same.
  void Close();

 private:
  class Worker;
  Storage& storage_;
  std::unique_ptr<Worker> worker_;
  std::filesystem::path path_;
  int descriptor_ = -1;
  std::string waiting_;
  int failure_ = 0;  ///< the `errno` of the last write, 0 when it went well
};

}  // namespace orvex
