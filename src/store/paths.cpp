#include "store/paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "model/limits.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/numbers.h"
#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

fs::path FilePath(const fs::path& dataPath, const char* kind, const Identity& identity,
                  const char* extension) {
  return dataPath / kind / identity.SchoolNum / identity.ClassNum /
         (identity.ClassId() + extension);
}

void MakeFolders(Storage& storage, const fs::path& dataPath, const char* kind,
                 const Identity& identity) {
  const fs::path ofKind = dataPath / kind;
  const fs::path ofSchool = ofKind / identity.SchoolNum;
  EnsureFolder(storage, ofKind);
  EnsureFolder(storage, ofSchool);
  EnsureFolder(storage, ofSchool / identity.ClassNum);
}

}  // namespace

bool IsNamed(const Identity& identity) {
  return std::ranges::all_of(
      kIdentityNumbers, [&](auto number) { return IdentityNumber(identity.*number).has_value(); });
}

void NameAfter(const fs::path& path, Identity& identity) {
  const std::string stem = path.stem().string();
  std::string_view name = stem;
  for (const auto number : kIdentityNumbers) {
    const std::string_view part = name.substr(0, name.find('-'));
    identity.*number = part;
    name.remove_prefix(std::min(part.size() + 1, name.size()));
  }
}

void NormaliseNumbers(Identity& identity) {
  for (const auto number : kIdentityNumbers) {
    if (const auto value = IdentityNumber(identity.*number)) {
      identity.*number = std::to_string(*value);
    }
  }
}

void NormaliseIdentity(Identity& identity) {
  constexpr std::array<const char*, kIdentityNumbers.size()> kNames = {"school", "class",
                                                                       "observation"};
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (IdentityNumber(identity.*kIdentityNumbers[i])) continue;
    throw std::invalid_argument("the " + std::string(kNames[i]) +
                                " number is not a number from 0 to " + std::to_string(kMostNumber));
  }
  NormaliseNumbers(identity);
}

namespace {

fs::path PathInMadeFolders(Storage& storage, const fs::path& dataPath, const char* kind,
                           Identity& identity, const char* extension) {
  NormaliseIdentity(identity);
  MakeFolders(storage, dataPath, kind, identity);
  return FilePath(dataPath, kind, identity, extension);
}

}  // namespace

fs::path MakeEpsPath(Storage& storage, const fs::path& dataPath, Identity& identity) {
  return PathInMadeFolders(storage, dataPath, "EPS", identity, ".eps");
}

fs::path MakeNtePath(Storage& storage, const fs::path& dataPath, Identity& identity) {
  return PathInMadeFolders(storage, dataPath, "NTE", identity, ".nte");
}

fs::path MakeSurPath(Storage& storage, const fs::path& dataPath, Identity& identity) {
  return PathInMadeFolders(storage, dataPath, "SUR", identity, ".sur");
}

fs::path SurPathInFolder(const fs::path& dataPath, Identity& identity) {
  NormaliseIdentity(identity);
  return dataPath / (identity.ClassId() + ".sur");
}

fs::path BakPath(const fs::path& dataPath, const Identity& identity) {
  return FilePath(dataPath, "BAK", identity, ".bak");
}

void MakeBakFolders(Storage& storage, const fs::path& dataPath, const Identity& identity) {
  const fs::path folder = BakPath(dataPath, identity).parent_path();
  if (MakeClassFolders(storage, folder) != 0) throw FileError(folder, errno);
}

fs::path DataFolderOf(const fs::path& logPath) {
  // DATA/BAK/school/class/name
  return logPath.parent_path().parent_path().parent_path().parent_path();
}

fs::path BakFolder(const fs::path& dataPath) {
  return dataPath / "BAK";
}

fs::path EpsPath(const fs::path& dataPath, const Identity& identity) {
  return FilePath(dataPath, "EPS", identity, ".eps");
}

fs::path NtePath(const fs::path& dataPath, const Identity& identity) {
  return FilePath(dataPath, "NTE", identity, ".nte");
}

fs::path SurPath(const fs::path& dataPath, const Identity& identity) {
  return FilePath(dataPath, "SUR", identity, ".sur");
}

}  // namespace orvex
