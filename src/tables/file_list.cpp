#include "tables/file_list.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/printable_text.h"
#include "store/text_encoding.h"
#include "study/found_files.h"
#include "tables/list_lines.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;  // of a list

/// Throws FileError when `bytes`, the start of the list at `path`, are more than a list has.
void RequireListSize(const fs::path& path, const std::string& bytes) {
  if (bytes.size() > kMostBytes) {
    throw FileError(path, "more than 16 MB, which is too large for a list of observations");
  }
}

std::string ReadInput(std::istream& input, const fs::path& path) {
  std::string bytes(kMostBytes + 1, '\0');
  input.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (input.bad()) throw FileError(path, "it could not be read");
  bytes.resize(static_cast<std::size_t>(input.gcount()));
  return bytes;
}

/// Whether tables are made from files of `kind`.
bool HoldsData(FileKind kind) {
  return kind == FileKind::episodes || kind == FileKind::survey;
}

/// Starts `list`'s next source. Returns its number.
std::size_t NextSource(Source::Kind kind, const fs::path& path, FileList& list) {
  list.sources.push_back({kind, path});
  return list.sources.size() - 1;
}

/// The file that `line` names in `folder`.
ListedFile FileNamed(const std::string& line, const fs::path& folder) {
  const FileKind kind = KindOf(line);
  const std::string name = kind == FileKind::other ? line : ObservationName(line);
  return {Decode(name).text, folder / line, kind};
}

bool IsThere(const ListedFile& file) {
  std::error_code unknown;
  if (file.kind != FileKind::other) return fs::exists(file.path, unknown);
  return fs::exists(PathOf(file, FileKind::episodes), unknown) ||
         fs::exists(PathOf(file, FileKind::survey), unknown);
}

/// The same for a line of a list, whose text may have other bytes than the file's name.
ListedFile FileNamed(const ListLine& line, const fs::path& folder) {
  ListedFile file = FileNamed(line.text, folder);
  if (line.bytes == line.text || IsThere(file)) return file;
  ListedFile byBytes = FileNamed(line.bytes, folder);
  return IsThere(byBytes) ? byBytes : file;
}

void AddList(Source::Kind kind, const fs::path& path, const std::string& bytes, FileList& list) {
  RequireListSize(path, bytes);
  const std::size_t source = NextSource(kind, path, list);
  const fs::path folder = path.parent_path();
  for (const ListLine& line : ParseList(bytes)) {
    ListedFile& file = list.files.emplace_back(FileNamed(line, folder));
    file.source = source;
    file.line = line.number;
  }
}

void AddFolder(const fs::path& folder, const std::function<bool()>& stops, FileList& list) {
  const std::size_t source = NextSource(Source::Kind::folder, folder, list);
  FoundFiles all = FindFiles(folder, stops);
  for (FoundFile& found : all.files) {
    if (!HoldsData(found.kind)) continue;
    list.files.push_back(
        {Decode(std::move(found.name)).text, std::move(found.path), found.kind, source});
  }
  std::ranges::move(all.unread, std::back_inserter(list.unread));
}

/// Adds the files of `kind` that the observations of folders in a tree have in another tree.
void AddFromOtherTrees(FileKind kind, FileList& list) {
  std::vector<bool> areInTree;  // by source
  for (const Source& source : list.sources) {
    areInTree.push_back(source.kind == Source::Kind::folder && IsInTree(source.path));
  }
  if (std::ranges::find(areInTree, true) == areInTree.end()) return;
  std::vector<ListedFile> named = std::exchange(list.files, {});
  for (auto first = named.begin(); first != named.end();) {
    const auto end = std::find_if(first, named.end(), [&](const ListedFile& file) {
      return file.source != first->source || file.name != first->name;
    });
    if (areInTree[first->source] &&
        std::none_of(first, end, [&](const ListedFile& file) { return file.kind == kind; })) {
      fs::path found = Companion(first->path, kind);
      if (!found.empty()) {
        list.files.push_back({first->name, std::move(found), kind, first->source});
      }
    }
    std::move(first, end, std::back_inserter(list.files));
    first = end;
  }
}

}  // namespace

FileList ReadFileList(const fs::path& path) {
  FileList list;
  AddList(Source::Kind::list, path, ReadFileStart(path, kMostBytes + 1), list);
  return list;
}

void AddSource(const fs::path& source, std::istream& input, FileList& list,
               const std::function<bool()>& stops) {
  std::error_code unknown;
  if (source == "-") {
    AddList(Source::Kind::input, source, ReadInput(input, source), list);
  } else if (fs::is_directory(source, unknown)) {
    AddFolder(source, stops, list);
  } else if (const FileKind kind = KindOf(source); kind != FileKind::other) {
    if (!HoldsData(kind)) {
      throw FileError(source, "expected an " + WordsFor(FileKind::episodes) + " or " +
                                  WordsFor(FileKind::survey));
    }
    const std::size_t number = NextSource(Source::Kind::file, source, list);
    list.files.push_back({Decode(ObservationName(source)).text, source, kind, number});
  } else {
    AddList(Source::Kind::list, source, ReadFileStart(source, kMostBytes + 1), list);
  }
}

FileList FilesOf(FileKind kind, FileList list) {
  AddFromOtherTrees(kind, list);
  std::vector<ListedFile> named = std::exchange(list.files, {});
  // Where the observations are whose files were named one by one: "find" names all of them.
  std::unordered_map<std::string, std::size_t> places;
  for (ListedFile& file : named) {
    const bool isWanted = file.kind == kind;
    if (list.SourceOf(file).kind == Source::Kind::folder) {
      if (isWanted) list.files.push_back(std::move(file));
      continue;
    }
    if (file.kind != FileKind::other) {
      const auto [place, isNew] = places.try_emplace(ObservationName(file.path), list.files.size());
      if (!isNew && list.files[place->second].kind != file.kind) {
        if (isWanted) list.files[place->second] = std::move(file);
        continue;
      }
    }
    list.files.push_back(std::move(file));
  }
  return list;
}

void AddLoneSurveys(const FileList& list, FileList& episodes) {
  std::set<std::pair<std::size_t, std::string_view>> known;
  for (const ListedFile& file : episodes.files) known.emplace(file.source, file.name);
  std::vector<ListedFile> lone;  // what is known points into the others
  for (const ListedFile& file : list.files) {
    if (list.SourceOf(file).kind == Source::Kind::folder && file.kind == FileKind::survey &&
        !known.contains({file.source, file.name})) {
      lone.push_back(file);
    }
  }
  std::ranges::move(lone, std::back_inserter(episodes.files));
}

const Source* EmptyFolder(const FileList& list) {
  std::vector<bool> hasFiles(list.sources.size());
  for (const ListedFile& file : list.files) hasFiles[file.source] = true;
  for (std::size_t i = 0; i < list.sources.size(); ++i) {
    const Source& source = list.sources[i];
    if (source.kind == Source::Kind::folder && !hasFiles[i]) return &source;
  }
  return nullptr;
}

fs::path PathOf(const ListedFile& file, FileKind kind) {
  if (file.kind == kind) return file.path;
  fs::path usual = file.path;
  if (file.kind != FileKind::other) usual.replace_extension();
  usual += ExtensionOf(kind);
  fs::path found = Companion(usual, kind);
  return found.empty() ? usual : found;
}

std::string PlaceOf(const ListedFile& file, const FileList& list) {
  if (file.line == 0) return "";
  const Source& source = list.SourceOf(file);
  return "line " + std::to_string(file.line) + " of " +
         (list.sources.size() == 1 ? "the list" : Printable(source.path.native()));
}

}  // namespace orvex
