#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "export/file_list.h"
#include "export/problem.h"
#include "store/durable_file.h"

namespace orvex {

class Storage;

/// A table that is joined from many files.
struct TableKind {
  std::string fileName;   ///< of the table
  std::string extension;  ///< of the files
  std::string header;     ///< the table's first line, with its end; may be empty
  /// Appends the rows of a file, with their line ends. Throws FileError and FormatError; what it
  /// has appended by then are whole rows.
  std::function<void(const std::filesystem::path& file, std::string& rows)> append;
};

/// What is to be told of a file that was read all the same.
using WarnOf = std::function<void(const std::filesystem::path& file, const std::string& warning)>;

/// EPSDATA.TXT and SURDATA.TXT.
TableKind EpsData(WarnOf warnOf);
TableKind SurData();

/// What becomes of the table when a file is missing or broken: it ends with the rows that had been
/// completed, or the file is left out.
enum class BadFile { endsTheTable, isSkipped };

/// Makes a table from the files of a list, one file a step. The rows gather in a file of their own,
/// which takes the place of an earlier table when it is committed: at every moment there is the old
/// table or the new one, and no row is ever cut. No more than one file is in memory.
class TableExport {
 public:
  /// Throws FileError when `table` cannot be made.
  TableExport(Storage& storage, TableKind kind, FileList list, std::filesystem::path table,
              BadFile badFile);

  const std::filesystem::path& Table() const { return table_; }
  const FileList& List() const { return list_; }
  /// How many files have been worked on.
  std::size_t Done() const { return done_; }
  std::size_t Count() const { return list_.files.size(); }
  /// How many rows the table has, its header not counted.
  std::size_t Rows() const { return rows_; }
  /// True when there is no file left to work on, or a bad one has ended the table.
  bool Finished() const { return ended_ || done_ == Count(); }

  /// Works on the next file. Returns what was wrong with it. Throws FileError when the table cannot
  /// be written.
  std::optional<Problem> Step();

  /// Puts the table in its place with the rows so far. Throws FileError; an earlier table then
  /// stays. Without it nothing is changed.
  void Commit();

 private:
  void WriteOut();

  TableKind kind_;
  FileList list_;
  std::filesystem::path table_;
  BadFile badFile_;
  FileReplacement file_;
  std::string text_;  ///< whole rows that have not been written
  std::size_t done_ = 0;
  std::size_t rows_ = 0;
  bool ended_ = false;
};

}  // namespace orvex
