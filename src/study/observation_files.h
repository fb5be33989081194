#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "store/file_error.h"
#include "store/file_stamp.h"
#include "study/file_kind.h"

namespace orvex {

/// The paths of an observation's files by FileKind; "" where there is none.
using ObservationPaths = std::array<std::string, kFileKindCount>;

/// The first of the paths that is there, in the order of FileKind; "" where none is.
const std::string& FirstOf(const ObservationPaths& paths);

/// The files of one observation.
struct ObservationFiles {
  /// See FoundFile::name. A second episode file of that name is an observation of its own, which is
  /// named as its file, with "./" before it should another observation be named so.
  std::string name;
  std::string key;  ///< NameKey of the name
  ObservationPaths paths;
  std::vector<std::string> further;  ///< a second survey and the like, which nobody reads

  const std::string& Path(FileKind kind) const { return paths[static_cast<std::size_t>(kind)]; }
};

struct FoundObservations {
  std::vector<ObservationFiles> observations;
  std::vector<FileError> unread;  ///< see FoundFiles
};
/// The observations in `folder`, in the order of their names. Throws as FindFiles does.
FoundObservations FindObservations(const std::filesystem::path& folder,
                                   const std::function<bool()>& stops);

/// In which state the files of an observation were.
struct ObservationStamps {
  std::array<FileStamp, kFileKindCount> files;  ///< by FileKind
  bool isRunning = false;                       ///< a program is working with the kept class

  bool operator==(const ObservationStamps&) const = default;
};
ObservationStamps StampsOf(const ObservationFiles& files);

}  // namespace orvex
