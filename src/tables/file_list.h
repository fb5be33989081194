#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/program.h"

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
/// Throws FormatError for what is no text, and for a file of another kind.
std::vector<ListedFile> ParseFileList(std::string bytes);
/// Reads a list file. Throws FileError as well, also for a file too large to be a list.
FileList ReadFileList(const std::filesystem::path& path);

/// The path of `base` with `extension`, which is in lower case; with the same in upper case where
/// only such a file is found.
std::filesystem::path WithExtension(const std::filesystem::path& base, std::string_view extension);

/// True when `name` ends with `extension`, in lower or in upper case.
bool HasExtension(const std::filesystem::path& name, std::string_view extension);

/// School, class and observation as a file's name tells them.
struct FileNumbers {
  std::string school;
  std::string classNum;
  std::string observation;
};
/// The numbers of ".../5-12-3.eps". Throws FileError when the name has fewer than two "-", or when
/// its numbers would not stay in their columns of a table.
FileNumbers NumbersOf(const std::filesystem::path& file);

/// What is to be told of a file whose identity line says other numbers than its name; nothing when
/// they agree, or when the name has none.
std::optional<std::string> OtherNumbers(const std::filesystem::path& file,
                                        const Identity& identity);

/// What is to be told of a file that was read all the same.
using Warn = std::function<void(const std::string& warning)>;

/// Tells `warn`, if there is one, of such numbers.
void WarnOfOtherNumbers(const std::filesystem::path& file, const Identity& identity,
                        const Warn& warn);

/// A name that the list has had before: "17-17-7 is in line 1 already".
struct Repeat {
  int line = 0;
  std::string text;  ///< fit for a terminal
};
std::vector<Repeat> RepeatsIn(const FileList& list);

}  // namespace orvex
