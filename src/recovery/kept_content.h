#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/program.h"

namespace orvex {

/// The extension of recovery files.
inline constexpr const char* kRecoveryExtension = ".recovery";

/// A content that a RecoveryFile has kept.
struct KeptContent {
  std::string content;
  std::uint64_t number = 0;  ///< counts up with each content that is kept
};

/// The bytes of a file that keeps `content`, sealed with its number and a checksum.
std::string Sealed(std::string content, std::uint64_t number);
/// The content and number in `bytes`, which Sealed has made. Throws FormatError when the seal is
/// missing or broken.
KeptContent Unsealed(const std::string& bytes);

/// The path at which a running class is kept, beside its log.
std::filesystem::path RecoveryPath(const std::filesystem::path& dataPath, const Identity& identity);

/// The path at which the recovery file `file` keeps something: `file` itself, or the path that it
/// was on its way to. Empty for any other file.
std::filesystem::path KeptPlaceOf(const std::filesystem::path& file);
/// The files that hold what is kept at `path`: the one at the path itself, and those still on their
/// way there.
std::vector<std::filesystem::path> FilesKeptAt(const std::filesystem::path& path);
/// True when something is kept at `path`, whole or damaged. A file that a killed program left half
/// written on its way there does not count, nor does a link: a RecoveryFile makes none.
bool IsKeptAt(const std::filesystem::path& path);
/// True when something is kept at `path` and no running program is working with it.
bool IsUnfinishedAt(const std::filesystem::path& path);
/// True when `folder` itself holds any file in which something is kept.
bool IsAnythingKeptIn(const std::filesystem::path& folder);
/// The paths in `folder` itself at which something is kept, in order.
std::vector<std::filesystem::path> KeptPathsIn(const std::filesystem::path& folder);
/// The paths at which something is kept in the class folders beneath `folder`, folder/school/class,
/// in order.
std::vector<std::filesystem::path> KeptPaths(const std::filesystem::path& folder);
/// The newest whole content kept at `path`. When there is none, throws the FileError or FormatError
/// of the first of its files.
KeptContent ReadKept(const std::filesystem::path& path);

}  // namespace orvex
