#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace orvex {

/// The kind of a file of an observation, judged by its extension: ".eps", ".EPS" or ".Eps". A
/// kept class is what a running class leaves beside its log when it was not ended.
enum class FileKind { episodes, survey, fieldNotes, sessionLog, keptClass, other };
inline constexpr std::size_t kFileKindCount = 5;  // without `other`
FileKind KindOf(const std::filesystem::path& file);
/// The same for the name of a file, without its folder.
FileKind KindOfName(std::string_view fileName);

/// How the files of `kind`, which is not `other`, end: ".eps".
std::string_view ExtensionOf(FileKind kind);
/// What messages call a file of `kind`: "episode file (.eps)".
std::string WordsFor(FileKind kind);

/// True for the name of the folder that holds the tree of a kind, "EPS", in upper or lower case.
bool IsTreeName(const std::filesystem::path& folderName);

/// True when `folder` is in the tree of a kind, so that files of the other kinds are outside it.
bool IsInTree(const std::filesystem::path& folder);

/// The file of `kind` that belongs to the same observation as `file`: beside it, or, where `file`
/// is in the tree of its kind ("EPS/5/12/5-12-3.eps"), in the tree of the other
/// ("BAK/5/12/5-12-3.bak"). Empty when there is none, and for a kept class.
std::filesystem::path Companion(const std::filesystem::path& file, FileKind kind);

}  // namespace orvex
