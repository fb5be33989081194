#include "store/paths.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/numbers.h"
#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

std::string Normalised(const std::string& text, const char* what) {
  const auto number = IdentityNumber(text);
  if (!number) {
    throw std::invalid_argument("the " + std::string(what) +
                                " number is not a number from 0 to 32767");
  }
  return std::to_string(*number);
}

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
  return IdentityNumber(identity.SchoolNum) && IdentityNumber(identity.ClassNum) &&
         IdentityNumber(identity.ObservNum);
}

void NameAfter(const fs::path& path, Identity& identity) {
  const std::string stem = path.stem().string();
  std::string_view name = stem;
  for (std::string* number : {&identity.SchoolNum, &identity.ClassNum, &identity.ObservNum}) {
    const std::string_view part = name.substr(0, name.find('-'));
    *number = part;
    name.remove_prefix(std::min(part.size() + 1, name.size()));
  }
}

void NormaliseIdentity(Identity& identity) {
  std::string school = Normalised(identity.SchoolNum, "school");
  std::string classNumber = Normalised(identity.ClassNum, "class");
  std::string observation = Normalised(identity.ObservNum, "observation");
  identity.SchoolNum = std::move(school);
  identity.ClassNum = std::move(classNumber);
  identity.ObservNum = std::move(observation);
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
