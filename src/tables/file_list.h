#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <istream>
#include <string>
#include <vector>

#include "store/file_error.h"
#include "study/file_kind.h"

namespace orvex {

/// What names the observations of a table.
struct Source {
  enum class Kind {
    folder,  ///< all files in it and in the folders beneath it
    list,    ///< a text file with an observation a line
    input,   ///< such a list, from the standard input
    file,    ///< an observation's file itself
  };
  Kind kind = Kind::list;
  std::filesystem::path path;
};

/// A file that a source names.
struct ListedFile {
  /// What tables call the observation: the line of a list, "5-12-3", or ObservationName. UTF-8.
  std::string name;
  std::filesystem::path path;       ///< without its extension while `kind` is open
  FileKind kind = FileKind::other;  ///< `other`: open, the line names the observation alone
  std::size_t source = 0;           ///< the number of the source, counted from 0
  int line = 0;  ///< of the list, counted from 1, including empty lines; 0 in other sources
};

/// The files to join into one table, in their order, and the sources that name them.
struct FileList {
  std::vector<Source> sources;
  std::vector<ListedFile> files;
  std::vector<FileError> unread = {};  ///< folders in sources that could not be read

  const Source& SourceOf(const ListedFile& file) const { return sources[file.source]; }
};

/// Reads a list file. The lines of a list name observations, "5-12-3", or their files,
/// "5-12-3.eps", in the list's folder. A name that there is only by its very bytes is taken by
/// these. Throws FormatError, and FileError when the file cannot be read or is too large for a
/// list.
FileList ReadFileList(const std::filesystem::path& path);

/// Adds the files that `source` names to `list`: a folder, an episode or survey file, a list, or
/// "-" for a list that is read from `input`, whose lines are relative to the current folder.
/// `stops` may end the search of a folder early; it may be empty. Throws FormatError and FileError.
void AddSource(const std::filesystem::path& source, std::istream& input, FileList& list,
               const std::function<bool()>& stops = {});

/// The files of `kind`, one for each observation. What a list or the user names stands for its
/// observation, whatever its kind; only folders may hold observations without such a file. A folder
/// in the tree of one kind has its observations' files in the trees of the others.
FileList FilesOf(FileKind kind, FileList list);
/// Adds to `episodes`, which are the episode files of `list`, the surveys in folders of `list` that
/// belong to none of them.
void AddLoneSurveys(const FileList& list, FileList& episodes);
/// The first folder that has no file in `list`, if there is one.
const Source* EmptyFolder(const FileList& list);

/// The path of the file of `kind` that `file` stands for: the file itself, or the one beside it or
/// in the tree of its kind; where there is none, the one that should lie beside it.
std::filesystem::path PathOf(const ListedFile& file, FileKind kind);

/// Where `file` is named: "line 2 of the list", "line 2 of LIST.TXT" among several sources; empty
/// for one that no list names. Safe to show on a terminal.
std::string PlaceOf(const ListedFile& file, const FileList& list);

}  // namespace orvex
