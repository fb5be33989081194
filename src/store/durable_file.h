#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

class Storage;

/// Replaces the file at `path`, or creates it, so that at every moment either the old or the new
/// content is on the disk, whole. A symbolic link stays a link: its target is replaced. An existing
/// file keeps its owner, as far as the user may give it, and its mode. Throws FileError; the old
/// file is then untouched, except when the very last step fails, the sync of the folder: the new
/// content is in place then, but a power cut might still bring the old one back. What killed
/// programs left in the folder a day ago is cleared.
void ReplaceFile(Storage& storage, const std::filesystem::path& path, std::string_view bytes);

/// Throws FileError when the file at `path`, or the folder it lies in, is write-protected, so that
/// it could not be replaced.
void RequireReplaceable(const std::filesystem::path& path);

/// Replaces a file by a content that comes piece by piece: it gathers in a file of its own beside
/// the one at `path` and takes its place with `Commit`. Until then, and without it, the old file
/// stays. All throw FileError.
class FileReplacement {
 public:
  FileReplacement(Storage& storage, std::filesystem::path path);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  void Write(std::string_view bytes);
  /// All of the content is on the disk then, still in its own file.
  void BringToDisk();
  void Commit();
  /// Where the file lies, links followed.
  std::filesystem::path Folder() const { return target_.parent_path(); }
  /// What it takes the place of: `path`, its links followed.
  const std::filesystem::path& Target() const { return target_; }

 private:
  void Require(bool done) const;
  bool SetMode(mode_t bits);
  void OpenTemporary(mode_t mode);
  void Discard();

  Storage& storage_;
  std::filesystem::path path_;       ///< as it was asked for
  std::filesystem::path target_;     ///< what it stands for
  std::filesystem::path temporary_;  ///< empty once it has taken its place
  int descriptor_ = -1;
  bool exists_ = false;
  struct stat old_ = {};   ///< of the old file, if there is one
  struct stat made_ = {};  ///< of the temporary
  mode_t mode_ = 0;        ///< the temporary's
};

enum class Links { areFollowed, areRefused };

/// The bytes of a file. Throws FileError; a folder, anything else that is not a regular file, and
/// a file of more than 512 MiB is an error.
std::string ReadFile(const std::filesystem::path& path, Links links = Links::areFollowed);
/// The same, but no more than the first `most` bytes of a file of any size.
std::string ReadFileStart(const std::filesystem::path& path, std::size_t most);

/// Creates `folder` when it does not exist; its parent must. That it exists is on the disk then.
/// Throws FileError.
void EnsureFolder(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
