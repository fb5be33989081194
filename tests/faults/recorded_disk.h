#pragma once

#include <fcntl.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "store/storage.h"
#include "support/test_folder.h"

namespace orvex::test {

/// The real disk. Before each call it also records every state that a power cut could leave behind.
/// A file then has the content of its last sync, followed by all, half or none of what was written
/// later. If a folder was not synced after names in it were made, changed or removed, the first few
/// of these changes may have survived, in their order.
class RecordedDisk : public Storage {
 public:
  /// A possible state of the folder: the content of each file, by its path in the folder.
  using Image = std::map<std::string, std::string>;

  explicit RecordedDisk(std::filesystem::path folder) : folder_(std::move(folder)) {
    namespace fs = std::filesystem;
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
      const std::string bytes = entry.is_directory() ? "" : FileBytes(entry.path());
      names_[entry.path()] =
          entry.is_directory() ? nullptr : std::make_shared<File>(File{bytes, bytes});
    }
    nameable_ = names_;
  }

  /// Notes that `steps` steps have been reported as done by now.
  void Done(std::size_t steps) {
    const std::lock_guard lock(mutex_);
    steps_ = steps;
    NoteImages();
  }
  /// Every possible state, with the largest number of steps done by the time it could arise.
  const std::map<Image, std::size_t>& Images() const { return images_; }

  int Open(const char* path, int flags, mode_t mode) override {
    const std::lock_guard lock(mutex_);
    NoteImages();
    const int descriptor = Storage::Open(path, flags, mode);
    if (descriptor < 0) return descriptor;
    open_[descriptor] = {path, nullptr};
    if ((flags & O_DIRECTORY) != 0) return descriptor;
    std::shared_ptr<File>& file = nameable_[path];
    if (!file) {
      file = std::make_shared<File>();
      changes_.push_back({.gone = "", .there = path, .file = file});
    }
    if ((flags & O_TRUNC) != 0) file->written.clear();
    open_[descriptor].second = file;
    return descriptor;
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) override {
    const std::lock_guard lock(mutex_);
    NoteImages();
    const ssize_t written = Storage::Write(descriptor, bytes, count);
    if (written > 0) {
      open_[descriptor].second->written.append(static_cast<const char*>(bytes),
                                               static_cast<std::size_t>(written));
    }
    return written;
  }
  int Sync(int descriptor) override {
    const std::lock_guard lock(mutex_);
    NoteImages();
    const auto& [path, file] = open_[descriptor];
    if (file) file->synced = file->written;
    for (Change& change : changes_) {
      change.synced = change.synced || (!file && change.Folder() == path);
    }
    for (; !changes_.empty() && changes_.front().synced; changes_.erase(changes_.begin())) {
      changes_.front().ApplyTo(names_);
    }
    return 0;
  }
  int SyncData(int descriptor) override { return Sync(descriptor); }
  int Rename(const char* from, const char* to) override {
    const std::lock_guard lock(mutex_);
    NoteImages();
    const int result = Storage::Rename(from, to);
    if (result != 0) return result;
    Change change = {.gone = from, .there = to, .file = nameable_.at(from)};
    change.ApplyTo(nameable_);
    if (Folder(from) != Folder(to)) {
      changes_.push_back({.gone = "", .there = to, .file = change.file});
      change.there.clear();
    }
    changes_.push_back(std::move(change));
    return result;
  }
  int Unlink(const char* path) override {
    const std::lock_guard lock(mutex_);
    NoteImages();
    const int result = Storage::Unlink(path);
    if (result == 0 && nameable_.erase(path) > 0) changes_.push_back({.gone = path, .there = ""});
    return result;
  }
  int MakeFolder(const char* path, mode_t mode) override {
    const std::lock_guard lock(mutex_);
    NoteImages();
    const int result = Storage::MakeFolder(path, mode);
    if (result == 0) changes_.push_back({.gone = "", .there = path});
    return result;
  }
  int Truncate(int descriptor, off_t size) override {
    const std::lock_guard lock(mutex_);
    NoteImages();
    open_[descriptor].second->written.resize(static_cast<std::size_t>(size));
    return Storage::Truncate(descriptor, size);
  }

 private:
  struct File {
    std::string synced;
    std::string written;

    /// The content if `part` halves of what was written since the last sync have reached the disk.
    std::string Content(std::size_t part) const {
      const std::size_t before = written.starts_with(synced) ? synced.size() : 0;
      if (part == 0) return synced;
      return written.substr(0, before + (written.size() - before) * part / 2);
    }
  };
  using Names = std::map<std::string, std::shared_ptr<File>>;  // a folder has a null file

  static std::string Folder(const std::string& path) {
    return std::filesystem::path(path).parent_path();
  }

  /// One change to the names in a folder.
  struct Change {
    std::string gone;
    std::string there;
    std::shared_ptr<File> file = nullptr;
    bool synced = false;

    std::string Folder() const { return RecordedDisk::Folder(gone.empty() ? there : gone); }
    void ApplyTo(Names& names) const {
      names.erase(gone);
      if (!there.empty()) names[there] = file;
    }
  };

  void NoteImages() {
    const auto pending = std::ranges::count(changes_, false, &Change::synced);
    for (std::ptrdiff_t kept = 0; kept <= pending; ++kept) {
      Names names = names_;
      std::ptrdiff_t left = kept;
      for (const Change& change : changes_) {
        if (change.synced || left-- > 0) change.ApplyTo(names);
      }
      for (const std::size_t part : {0U, 1U, 2U}) {
        std::size_t& steps = images_[ImageOf(names, part)];
        steps = std::max(steps, steps_);
      }
    }
  }

  /// The state of the disk with these names. Whatever is in a folder that was lost is lost too.
  Image ImageOf(const Names& names, std::size_t part) const {
    Image image;
    std::set<std::string> folders = {folder_};
    for (const auto& [path, file] : names) {  // sorted, so a folder comes before its contents
      if (!folders.contains(Folder(path))) continue;
      if (file) {
        image[std::filesystem::path(path).lexically_relative(folder_)] = file->Content(part);
      } else {
        folders.insert(path);
      }
    }
    return image;
  }

  const std::filesystem::path folder_;
  std::mutex mutex_;
  Names names_;     ///< what any power cut leaves
  Names nameable_;  ///< what the system shows, without folders made since
  std::vector<Change> changes_;
  std::map<int, std::pair<std::string, std::shared_ptr<File>>> open_;
  std::map<Image, std::size_t> images_;
  std::size_t steps_ = 0;
};

/// Creates each recorded state as a folder and calls `look(folder, steps)` on it.
template <typename Look>
void LookAtImages(const RecordedDisk& disk, Look look) {
  for (const auto& [image, steps] : disk.Images()) {
    const TestFolder folder;
    for (const auto& [name, bytes] : image) PutFile(folder / name, bytes);
    look(folder.Path(), steps);
  }
}

}  // namespace orvex::test
