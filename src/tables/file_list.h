#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "study/file_numbers.h"

namespace orvex {

/// A line of a list file.
struct ListedFile {
  int line = 0;      ///< counted from 1, including empty lines
  std::string name;  ///< the base name of an observation, "5-12-3"
};

/// A list file: the observations to join into one table. Their files are in the list's folder.
struct FileList {
  std::filesystem::path path;
  std::vector<ListedFile> files;

  std::filesystem::path Folder() const { return path.parent_path(); }
};

/// Parses a list file. Trims the names and skips empty lines. Throws FormatError when `bytes`
/// are not text or belong to another kind of file.
std::vector<ListedFile> ParseFileList(std::string bytes);
/// Reads a list file. Throws FormatError, and FileError when the file cannot be read or is too
/// large for a list.
FileList ReadFileList(const std::filesystem::path& path);

/// The path `base` + `extension`, which is in lower case. Uses the upper-case extension when
/// only that file exists.
std::filesystem::path WithExtension(const std::filesystem::path& base, std::string_view extension);

/// True when `name` ends with `extension` in lower or upper case.
bool HasExtension(const std::filesystem::path& name, std::string_view extension);

/// A name that appears in the list again: "17-17-7 is in line 1 already".
struct Repeat {
  int line = 0;
  std::string text;  ///< safe to show on a terminal
};
std::vector<Repeat> RepeatsIn(const FileList& list);

}  // namespace orvex
