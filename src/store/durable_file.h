#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// Replaces or creates the file at `path` so that at every moment the disk holds either the old or
/// the new content, whole. A symbolic link stays a link: its target is replaced. An existing file
/// keeps its mode and, as far as the user may set it, its owner. Throws FileError; the old file is
/// then untouched, unless only the very last step failed, syncing the folder: then the new content
/// is in place, but a power cut might still bring the old one back. Also removes what killed
/// programs left in the folder more than a day ago.
void ReplaceFile(Storage& storage, const std::filesystem::path& path, std::string_view bytes);

/// Throws FileError when the file at `path` could not be replaced: it does not exist, or it or its
/// folder is write-protected.
void RequireReplaceable(const std::filesystem::path& path);

/// Replaces a file by content that comes piece by piece. The content gathers in a temporary beside
/// the file, which takes the file's place with `Commit`. Until then, or without it, the old file
/// stays. All functions throw FileError.
class FileReplacement {
 public:
  FileReplacement(Storage& storage, std::filesystem::path path);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  void Write(std::string_view bytes);
  /// Where the content gathers, for a library that writes it by itself.
  const std::filesystem::path& Temporary() const { return temporary_; }
  /// Brings the whole content to the disk, still in the temporary. Ends the writing.
  void BringToDisk();
  void Commit();
  /// The folder of `Target`.
  std::filesystem::path Folder() const { return target_.parent_path(); }
  /// The file to replace: `path` with its links followed.
  const std::filesystem::path& Target() const { return target_; }

 private:
  void Require(bool done) const;
  bool SetMode(mode_t bits);
  void OpenTemporary(mode_t mode);
  void Discard();

  Storage& storage_;
  std::filesystem::path path_;       ///< as the caller gave it
  std::filesystem::path target_;     ///< with links followed
  std::filesystem::path temporary_;  ///< empty once it has taken its place
  int descriptor_ = -1;
  bool exists_ = false;
  struct stat old_ = {};   ///< status of the old file, if there is one
  struct stat made_ = {};  ///< status of the temporary
  mode_t mode_ = 0;        ///< mode of the temporary
};

enum class Links { areFollowed, areRefused };

/// The bytes of a file. Throws FileError, also for a folder, for anything else that is not a
/// regular file, and for a file larger than 512 MiB.
std::string ReadFile(const std::filesystem::path& path, Links links = Links::areFollowed);
/// The first `most` bytes of a regular file of any size, or all of it. Throws FileError.
std::string ReadFileStart(const std::filesystem::path& path, std::size_t most);

/// Creates `folder` unless it exists; its parent must exist. On return, the folder's name is on the
/// disk. Throws FileError.
void EnsureFolder(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
