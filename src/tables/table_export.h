#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "desk/screens.h"
#include "store/durable_file.h"
#include "tables/file_list.h"
#include "tables/problem.h"

namespace orvex {

class Storage;

/// A table that is joined from many files.
struct TableKind {
  std::string fileName;   ///< of the table
  std::string extension;  ///< of the files
  std::string header;     ///< the table's first line, with its end; may be empty
  /// Appends the rows of a file, with their line ends; `name` is how the list names it. Throws
  /// FileError and FormatError; what it has appended by then are whole rows.
  std::function<void(const std::filesystem::path& file, const std::string& name, std::string& rows)>
      append;
};

/// What is to be told of a file that was read all the same.
using WarnOf = std::function<void(const std::filesystem::path& file, const std::string& warning)>;

/// EPSDATA.TXT and SURDATA.TXT. Either may be left out.
struct TableWarnings {
  WarnOf ofReading = {};  ///< an earlier version, a repair
  WarnOf ofNames = {};    ///< a file whose identity line says other numbers than its name
};
TableKind TableOf(ExportKind kind, const TableWarnings& warnings);

/// What becomes of the table when a file is missing or broken: it ends with the rows that had been
/// completed, or the file is left out.
enum class BadFile { endsTheTable, isSkipped };

/// Makes a table from the files of a list, one file a step. The rows gather in a file of their own,
/// which takes the place of an earlier table when it is committed: at every moment there is the old
/// table or the new one, and no row is ever cut. No more than one file is in memory.
class TableExport {
 public:
  /// Throws FileError when `table` cannot be made, or is the list itself.
  TableExport(Storage& storage, TableKind kind, FileList list, std::filesystem::path table,
              BadFile badFile);

  const std::filesystem::path& Table() const { return table_; }
  /// How many files have been worked on.
  std::size_t Done() const { return done_; }
  std::size_t Count() const { return list_.files.size(); }
  /// How many rows the table has, its header not counted, and how many files these are of.
  std::size_t Rows() const { return rows_; }
  std::size_t Files() const { return files_; }
  /// True when a bad file has ended the table, and when some of its rows are in it.
  bool Ended() const { return ended_; }
  bool LastInPart() const { return lastInPart_; }
  /// True when there is no file left to work on, or a bad one has ended the table.
  bool Finished() const { return ended_ || done_ == Count(); }

  /// Works on the next file. Returns what was wrong with it. Throws FileError when the table cannot
  /// be written.
  std::optional<Problem> Step();

  /// Puts the table in its place with the rows so far. False when an earlier table stays, as bad
  /// files have left none for a new one. Throws FileError; an earlier table then stays. Without it
  /// nothing is changed.
  bool Commit();

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
  std::size_t files_ = 0;
  bool ended_ = false;
  bool lastInPart_ = false;
};

/// Throws FileError when `table` is the list, which it would replace.
void RequireNotTheList(const std::filesystem::path& table, const std::filesystem::path& list);

/// What there is when `table` has not been put in its place: "The earlier EPSDATA.TXT stays as it
/// was."
std::string WithoutNewTable(const std::filesystem::path& table);

}  // namespace orvex
