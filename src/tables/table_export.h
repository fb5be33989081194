#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

#include "desk/screens.h"
#include "study/file_kind.h"
#include "study/ordered_reading.h"
#include "tables/file_list.h"
#include "tables/file_rows.h"
#include "tables/table_file.h"

namespace orvex {

class Storage;

/// A kind of table that is joined from many files.
struct TableKind {
  std::string fileName;                 ///< the table's
  FileKind files = FileKind::episodes;  ///< what it is made from
  bool takesLoneSurveys = false;        ///< and from surveys without an episode file
  std::string header;                   ///< its first line with its line end; may be empty
  /// Adds the rows of a file, which is called `name` in the list. Throws FileError and FormatError,
  /// but never leaves part of a row. Is called from several threads at once.
  std::function<void(const std::filesystem::path& file, const std::string& name, FileRows& rows)>
      append;
  /// Makes the table's file; empty for a text.
  std::function<std::unique_ptr<TableFile>(Storage& storage, const std::filesystem::path& path)>
      open = {};
};

/// EPSDATA.TXT or SURDATA.TXT.
TableKind TableOf(ExportKind kind);

/// The files of `list` that a table of this kind is made from.
FileList FilesFor(const TableKind& kind, FileList list);

/// What to do about a missing or broken file: end the table with the rows completed so far, or
/// leave the file out.
enum class BadFile { endsTheTable, isSkipped };

/// Makes a table from the files of a list, one file per step, while further ones are read on all
/// cores. The rows are collected in a temporary file that replaces an earlier table on commit, so
/// at any moment there is either the old table or the new one, and never half a row. The memory it
/// needs does not grow with the number of files.
class TableExport {
 public:
  /// `list` holds files of the table's kind (FilesFor). Throws FileError when `table` cannot be
  /// made, or would replace a source.
  TableExport(Storage& storage, TableKind kind, FileList list, std::filesystem::path table,
              BadFile badFile);

  /// Writes the table to `stream`, from where it cannot be taken back. Only for kinds of text.
  TableExport(std::ostream& stream, TableKind kind, FileList list, BadFile badFile);

  /// The table's file; empty for a stream.
  const std::filesystem::path& Table() const { return table_; }
  const FileList& List() const { return list_; }
  /// How many files have been processed.
  std::size_t Done() const { return done_; }
  std::size_t Count() const { return count_; }
  /// The number of rows in the table, without its header, and the number of files they come
  /// from.
  std::size_t Rows() const { return rows_; }
  std::size_t Files() const { return files_; }
  /// How many files had a problem.
  std::size_t Bad() const { return bad_; }
  /// Whether a bad file has ended the table, and whether some of that file's rows are in it.
  bool Ended() const { return ended_; }
  bool LastInPart() const { return lastInPart_; }
  /// True when no file is left, or a bad one has ended the table.
  bool Finished() const { return ended_ || done_ == Count(); }

  /// Frees the memory of the list, once the table is finished and waits for its commit.
  void ForgetList() { list_ = {}; }

  /// Adds the rows of the next file. Throws FileError when the table cannot be written.
  FileNotes Step();

  /// Moves the table with its rows so far into place. Returns false and keeps an earlier table
  /// when bad files have left no rows for a new one. Throws FileError, also keeping the earlier
  /// table. Without a commit, an earlier table stays as it is.
  bool Commit();

 private:
  using Open = std::function<std::unique_ptr<TableFile>(const TableExport& made)>;
  TableExport(TableKind kind, FileList list, std::filesystem::path table, BadFile badFile,
              const Open& open);

  FileRows RowsOf(std::size_t file) const;

  TableKind kind_;
  FileList list_;
  std::size_t count_;
  std::filesystem::path table_;
  BadFile badFile_;
  std::unique_ptr<TableFile> file_;
  std::size_t done_ = 0;
  std::size_t rows_ = 0;
  std::size_t files_ = 0;
  std::size_t bad_ = 0;
  bool ended_ = false;
  bool lastInPart_ = false;
  OrderedReading<FileRows> reading_;  // last: its threads use the kind and the list
};

/// Throws FileError when `table` is one of the lists, or a link to an observation's file, which it
/// would replace.
void RequireNoSource(const std::filesystem::path& table, const FileList& list);

/// A sentence that says what is there when no new table was stored: "The earlier EPSDATA.TXT stays
/// as it was." `table` may be empty, for a stream.
std::string WithoutNewTable(const std::filesystem::path& table);

}  // namespace orvex
