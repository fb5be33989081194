#include "study/file_kind.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "recovery/kept_content.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// How the files of a kind end, and the folder that holds their tree.
struct KindNames {
  FileKind kind;
  std::string_view noun;
  /// The first is the usual one. Each is looked for by its name, so there are few: what is looked
  /// for is often not there, and a disk may be at the other end of a network.
  std::array<std::string_view, 3> extensions;
  std::string_view folder;
};
constexpr std::array<KindNames, 4> kKinds = {{
    {FileKind::episodes, "episode file", {".eps", ".EPS", ".Eps"}, "EPS"},
    {FileKind::survey, "survey file", {".sur", ".SUR", ".Sur"}, "SUR"},
    {FileKind::fieldNotes, "field-notes file", {".nte", ".NTE", ".Nte"}, "NTE"},
    {FileKind::sessionLog, "session log", {".bak", ".BAK", ".Bak"}, "BAK"},
}};

const KindNames& NamesOf(FileKind kind) {
  const auto* const names = std::ranges::find(kKinds, kind, &KindNames::kind);
  if (names == kKinds.end()) throw std::logic_error("the kind has no names");
  return *names;
}

char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool EqualsInAnyCase(std::string_view text, std::string_view upper) {
  if (text.size() != upper.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (UpperCase(text[i]) != upper[i]) return false;
  }
  return true;
}

/// The file named `stem` in `folder`, with the extension of `kind`; empty when there is none. What
/// has the name and is no file, or cannot be looked at, is better than nothing: who reads it learns
/// what is wrong with it.
fs::path FileIn(const fs::path& folder, const fs::path& stem, const KindNames& kind) {
  fs::path other;
  for (const std::string_view extension : kind.extensions) {
    fs::path file = folder / stem;
    file += extension;
    std::error_code unknown;
    const fs::file_type type = fs::status(file, unknown).type();
    if (type == fs::file_type::regular) return file;
    if (type != fs::file_type::not_found && other.empty()) other = std::move(file);
  }
  return other;
}

/// The class's folder in the tree of `kind`, for a class's folder in the tree of another kind.
fs::path FolderInTree(const fs::path& classFolder, const KindNames& kind) {
  const fs::path tree = classFolder.parent_path().parent_path();
  if (!IsTreeName(tree.filename())) return {};
  return tree.parent_path() / kind.folder / classFolder.parent_path().filename() /
         classFolder.filename();
}

}  // namespace

FileKind KindOf(const fs::path& file) {
  return KindOfName(file.filename().native());
}

FileKind KindOfName(std::string_view fileName) {
  const std::size_t point = fileName.rfind('.');
  if (point == std::string_view::npos || point == 0) return FileKind::other;
  const std::string_view extension = fileName.substr(point);
  for (const KindNames& kind : kKinds) {
    if (std::ranges::find(kind.extensions, extension) != kind.extensions.end()) return kind.kind;
  }
  // The changes of an edited file are kept as "5-12-3.eps.recovery".
  const fs::path kept = KeptPlaceOf(fileName).stem();
  return kept.empty() || kept.has_extension() ? FileKind::other : FileKind::keptClass;
}

std::string_view ExtensionOf(FileKind kind) {
  return NamesOf(kind).extensions.front();
}

std::string WordsFor(FileKind kind) {
  const KindNames& names = NamesOf(kind);
  return std::string(names.noun) + " (" + std::string(names.extensions.front()) + ")";
}

bool IsTreeName(const fs::path& folderName) {
  return std::ranges::any_of(kKinds, [&](const KindNames& kind) {
    return EqualsInAnyCase(folderName.native(), kind.folder);
  });
}

bool IsInTree(const fs::path& folder) {
  std::error_code unknown;
  const fs::path whole = fs::absolute(folder, unknown);
  return std::any_of(whole.begin(), whole.end(), IsTreeName);
}

fs::path Companion(const fs::path& file, FileKind kind) {
  if (kind == FileKind::keptClass) return {};
  const KindNames& names = NamesOf(kind);
  fs::path beside = FileIn(file.parent_path(), file.stem(), names);
  if (!beside.empty()) return beside;
  // A path from the class's own folder does not say in which tree it is, and one that names "."
  // ("EPS/./5/12") has a folder too many.
  std::error_code unknown;
  const fs::path whole = fs::absolute(file, unknown).lexically_normal();
  const fs::path inTree = FolderInTree(whole.parent_path(), names);
  return inTree.empty() ? fs::path() : FileIn(inTree, file.stem(), names);
}

}  // namespace orvex
