#include "study/found_files.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>
#include <tuple>
#include <utility>

#include "recovery/kept_content.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The part of an observation's name that comes from the folder of its file: `folder` without the
/// folder of a kind.
fs::path NameOfFolder(const fs::path& folder) {
  auto tree = folder.end();
  for (auto part = folder.begin(); part != folder.end(); ++part) {
    if (IsTreeName(*part)) tree = part;
  }
  fs::path name;
  for (auto part = folder.begin(); part != folder.end(); ++part) {
    if (part != tree && *part != ".") name /= *part;
  }
  return name;
}

std::string InFolder(const std::string& folder, const std::string& name) {
  return folder + '/' + name;
}

/// Collects the files of a folder and of those beneath it.
class Search {
 public:
  explicit Search(const std::function<bool()>& stops) : stops_(stops) {}

  /// `fromStart` is the path to `folder` from where the search started. Returns 0, or the `errno`
  /// of why the folder itself cannot be read to its end.
  int Enter(const std::string& folder, const fs::path& fromStart) {
    const std::string name = (NameOfFolder(fromStart) / "").string();
    std::vector<std::string> folders;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); entry != fs::directory_iterator() && !Stops();
         entry.increment(error)) {
      std::error_code unknown;
      const std::string entryName = entry->path().filename().string();
      if (entry->is_regular_file(unknown)) {
        Add(folder, entryName, name);
      } else if (entry->is_directory(unknown) && !entry->is_symlink(unknown)) {
        folders.push_back(entryName);
      }
    }
    for (const std::string& inner : folders) {
      if (Stops()) break;
      const std::string path = InFolder(folder, inner);
      const int innerError = Enter(path, fromStart / inner);
      if (innerError != 0 && innerError != ENOENT) unread_.emplace_back(path, innerError);
    }
    return error.value();
  }

  FoundFiles Sorted() {
    std::ranges::sort(found_, [](const FoundFile& a, const FoundFile& b) {
      return std::tie(a.key, a.kind, a.path) < std::tie(b.key, b.kind, b.path);
    });
    // A kept class may have files on their way to the one place.
    const auto samePath = [](const FoundFile& a, const FoundFile& b) { return a.path == b.path; };
    found_.erase(std::unique(found_.begin(), found_.end(), samePath), found_.end());
    std::ranges::sort(unread_, {}, &FileError::Path);
    return {std::move(found_), std::move(unread_)};
  }

 private:
  bool Stops() const { return stops_ && stops_(); }

  void Add(const std::string& folder, std::string_view entry, const std::string& name) {
    const FileKind kind = KindOfName(entry);
    if (kind == FileKind::other) return;
    std::string file(entry);
    if (kind == FileKind::keptClass) file = KeptPlaceOf(file).string();
    std::string whole = name + file.substr(0, file.rfind('.'));
    std::string key = NameKey(whole);
    found_.push_back({std::move(whole), std::move(key), InFolder(folder, file), kind});
  }

  const std::function<bool()>& stops_;
  std::vector<FoundFile> found_;
  std::vector<FileError> unread_;
};

}  // namespace

std::string ObservationName(const fs::path& file) {
  return (NameOfFolder(file.parent_path()) / file.stem()).string();
}

std::string NameKey(std::string_view name) {
  // A number becomes a "0", which no other text has after this, the count of its digits and the
  // digits themselves. Numbers that differ in their leading zeros only are told apart at the end.
  std::string key;
  key.reserve(2 * name.size() + 8);
  for (std::string_view rest = name; !rest.empty();) {
    std::size_t length = 0;
    while (length < rest.size() && IsDigit(rest[length])) ++length;
    if (length == 0) {
      key += rest.front();
      rest.remove_prefix(1);
      continue;
    }
    std::string_view digits = rest.substr(0, length);
    rest.remove_prefix(length);
    while (digits.size() > 1 && digits.front() == '0') digits.remove_prefix(1);
    key += '0';
    key += static_cast<char>(std::min<std::size_t>(digits.size(), 255));
    key += digits;
  }
  key += '\0';
  key += name;
  return key;
}

bool ComesBefore(std::string_view a, std::string_view b) {
  return NameKey(a) < NameKey(b);
}

FoundFiles FindFiles(const fs::path& folder, const std::function<bool()>& stops) {
  Search search(stops);
  const std::string start = folder.string();
  const bool endsWithSlash = start.size() > 1 && start.ends_with('/');
  const int error = search.Enter(endsWithSlash ? start.substr(0, start.size() - 1) : start, "");
  if (error != 0) throw FileError(folder, error);
  return search.Sorted();
}

}  // namespace orvex
