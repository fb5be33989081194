#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/file_error.h"
#include "study/file_kind.h"

namespace orvex {

/// What the observation of a file is called: the path without the extension and without the folder
/// of the file's kind ("5/12/5-12-3" for "EPS/5/12/5-12-3.eps"), so that all files of an
/// observation have the same name.
std::string ObservationName(const std::filesystem::path& file);

/// A file of an observation that was found in a folder.
struct FoundFile {
  std::string name;  ///< ObservationName of the path from the folder
  std::string key;   ///< NameKey of the name
  std::string path;
  FileKind kind = FileKind::other;
};

struct FoundFiles {
  std::vector<FoundFile> files;
  std::vector<FileError> unread;  ///< the folders that could not be read, or not to their end;
                                  ///< not those that have gone meanwhile
};

/// Finds the files of observations in `folder` and in all folders beneath it, in the order of the
/// numbers in their names: "5-2-10" comes after "5-2-9". Files of one observation follow each other
/// in the order of FileKind. Links to folders are not followed. A kept class is found once, at the
/// path at which it is kept. `stops` is asked now and then and may end the search early; it may be
/// empty. Throws FileError when `folder` itself cannot be read.
FoundFiles FindFiles(const std::filesystem::path& folder, const std::function<bool()>& stops = {});

/// A text whose bytes are in the order in which ComesBefore has the names, to compare many of them.
std::string NameKey(std::string_view name);
/// True when `a` comes before `b` in the order of the numbers in them, other text by its bytes.
bool ComesBefore(std::string_view a, std::string_view b);

}  // namespace orvex
