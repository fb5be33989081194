#include "store/folder_entries.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

namespace orvex {
namespace {

bool IsOfKind(int folder, const dirent& entry, int flags, mode_t kind) {
  struct stat status = {};
  return ::fstatat(folder, entry.d_name, &status, flags) == 0 && (status.st_mode & S_IFMT) == kind;
}

/// Asks for the status only where the folder itself does not tell.
EntryKind KindOf(int folder, const dirent& entry) {
  if (entry.d_type == DT_REG) return EntryKind::file;
  if (entry.d_type == DT_DIR) return EntryKind::folder;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return EntryKind::other;
  if (IsOfKind(folder, entry, 0, S_IFREG)) return EntryKind::file;
  const bool isFolder = IsOfKind(folder, entry, AT_SYMLINK_NOFOLLOW, S_IFDIR);
  return isFolder ? EntryKind::folder : EntryKind::other;
}

struct Closer {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

}  // namespace

int ForEachEntry(const std::string& folder,
                 const std::function<bool(std::string_view name, EntryKind kind)>& act) {
  const std::unique_ptr<DIR, Closer> open(::opendir(folder.c_str()));
  if (!open) return errno;
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(open.get());
    if (!entry) return errno;
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    if (!act(name, KindOf(::dirfd(open.get()), *entry))) return 0;
  }
}

}  // namespace orvex
