#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/program.h"

namespace orvex {

/// How the files of a RecoveryFile end.
inline constexpr const char* kRecoveryExtension = ".recovery";

/// A content that a RecoveryFile kept.
struct KeptContent {
  std::string content;
  std::uint64_t number = 0;  ///< counts up with every content of a class
};

/// `content` as it stands in a file: sealed with its number and a checksum.
std::string Sealed(std::string content, std::uint64_t number);
/// The way back. Throws FormatError when the seal is missing or broken.
KeptContent Unsealed(const std::string& bytes);

/// Where a class is kept while it runs, beside its log.
std::filesystem::path RecoveryPath(const std::filesystem::path& dataPath, const Identity& identity);

/// The files that hold what is kept at `path`: itself, and those on their way to its place. A
/// RecoveryFile makes no links: what one points to counts as nothing.
std::vector<std::filesystem::path> FilesKeptAt(const std::filesystem::path& path);
/// True when something is kept at `path`, whole or damaged. What a killed program left half written
/// on its way counts as nothing.
bool IsKeptAt(const std::filesystem::path& path);
/// The same, and no running program works with it.
bool IsUnfinishedAt(const std::filesystem::path& path);
/// True when a file of anything that is kept lies in `folder` itself.
bool IsAnythingKeptIn(const std::filesystem::path& folder);
/// The paths at which something is kept in `folder` itself, in their order.
std::vector<std::filesystem::path> KeptPathsIn(const std::filesystem::path& folder);
/// The paths at which something is kept in the folders of the classes of schools beneath `folder`,
/// in their order.
std::vector<std::filesystem::path> KeptPaths(const std::filesystem::path& folder);
/// The newest whole content kept at `path`. When none is whole, throws the FileError or FormatError
/// of the file in the place itself.
KeptContent ReadKept(const std::filesystem::path& path);

}  // namespace orvex
