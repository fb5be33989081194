#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvex {

/// A line of a list file.
struct ListedFile {
  int line = 0;      ///< counted from 1, empty lines included
  std::string name;  ///< the base name of an observation, "5-12-3"
};

/// A list file: the observations to be joined into one table. Their files lie in its folder.
struct FileList {
  std::filesystem::path path;
  std::vector<ListedFile> files;

  std::filesystem::path Folder() const { return path.parent_path(); }
};

/// The files that a list file's text names: blanks around a name are dropped, empty lines skipped.
std::vector<ListedFile> ParseFileList(std::string bytes);
/// Reads a list file. Throws FileError.
FileList ReadFileList(const std::filesystem::path& path);

/// School, class and observation as a file's name tells them.
struct FileNumbers {
  std::string_view school;
  std::string_view classNum;
  std::string_view observation;
};
/// The numbers of "5-12-3.eps", pointing into it; a folder before the name does not count. Nothing
/// when the name has fewer than two "-".
std::optional<FileNumbers> NumbersOf(std::string_view name);

}  // namespace orvex
