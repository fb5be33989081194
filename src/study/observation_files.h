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

/// The files of one observation.
struct ObservationFiles {
  /// See FoundFile::name. A second episode file of that name is an observation of its own, which is
  /// named as its file.
  std::string name;
  std::string key;                                ///< NameKey of the name
  std::array<std::string, kFileKindCount> paths;  ///< by FileKind; "" where there is none
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
using ObservationStamps = std::array<FileStamp, kFileKindCount>;
ObservationStamps StampsOf(const ObservationFiles& files);

}  // namespace orvex
