#include "study/found_files.h"

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <tuple>
#include <utility>

#include "recovery/kept_content.h"
#include "store/file_error.h"

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

/// Collects the files of a folder and of those beneath it.
class Search {
 public:
  explicit Search(const std::function<bool()>& stops) : stops_(stops) {}

  /// `fromStart` is the path to `folder` from where the search started. Returns why the folder
  /// itself cannot be read.
  std::error_code Enter(const fs::path& folder, const fs::path& fromStart) {
    const std::string name = (NameOfFolder(fromStart) / "").string();
    std::error_code error;
    std::vector<fs::path> folders;
    for (fs::directory_iterator at(folder, error); at != fs::directory_iterator();
         at.increment(error)) {
      if (Stops()) break;
      std::error_code unknown;
      if (at->is_directory(unknown)) {
        if (!at->is_symlink(unknown)) folders.push_back(at->path());
      } else {
        Add(*at, name);
      }
    }
    if (error) return error;
    for (const fs::path& inner : folders) {
      if (Stops()) break;
      Enter(inner, fromStart / inner.filename());
    }
    return error;
  }

  std::vector<FoundFile> Sorted() {
    std::ranges::sort(found_, [](const Keyed& a, const Keyed& b) {
      return std::tie(a.key, a.file.kind, a.file.path) < std::tie(b.key, b.file.kind, b.file.path);
    });
    std::vector<FoundFile> sorted;
    sorted.reserve(found_.size());
    for (Keyed& found : found_) {
      FoundFile& file = found.file;
      const bool again =
          file.kind == FileKind::keptClass && !sorted.empty() && sorted.back().path == file.path;
      if (!again) sorted.push_back(std::move(file));
    }
    return sorted;
  }

 private:
  struct Keyed {
    std::string key;
    FoundFile file;
  };

  bool Stops() const { return stops_ && stops_(); }

  void Add(const fs::directory_entry& entry, const std::string& name) {
    const FileKind kind = KindOf(entry.path());
    std::error_code unknown;
    if (kind == FileKind::other || !entry.is_regular_file(unknown)) return;
    fs::path path = kind == FileKind::keptClass ? KeptPlaceOf(entry.path()) : entry.path();
    std::string whole = name + path.stem().string();
    std::string key = NameKey(whole);
    found_.push_back({std::move(key), {std::move(whole), std::move(path), kind}});
  }

  const std::function<bool()>& stops_;
  std::vector<Keyed> found_;
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

std::vector<FoundFile> FindFiles(const fs::path& folder, const std::function<bool()>& stops) {
  Search search(stops);
  const std::error_code error = search.Enter(folder, "");
  if (error) throw FileError(folder, error.value());
  return search.Sorted();
}

}  // namespace orvex
