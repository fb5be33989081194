#include "tables/table_export.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "store/stray_temporaries.h"
#include "tables/episode_rows.h"
#include "tables/survey_row.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Checks that `table` would replace no source, and removes stray temporary files from its folder.
void Prepare(Storage& storage, const fs::path& table, const FileList& list) {
  RequireNoSource(table, list);
  RemoveStrayTemporaries(storage, table.parent_path());
}

}  // namespace

TableKind TableOf(ExportKind kind) {
  if (kind == ExportKind::epsData) {
    return {.fileName = "EPSDATA.TXT",
            .files = FileKind::episodes,
            .header = "",
            .append = [](const auto& file, const auto&, FileRows& rows) {
              AppendEpisodeRows(file, rows);
            }};
  }
  return {
      .fileName = "SURDATA.TXT",
      .files = FileKind::survey,
      .header = "",
      .append = [](const auto& file, const auto&, FileRows& rows) { AppendSurveyRow(file, rows); }};
}

FileList FilesFor(const TableKind& kind, FileList list) {
  if (!kind.takesLoneSurveys) return FilesOf(kind.files, std::move(list));
  FileList files = FilesOf(kind.files, list);
  AddLoneSurveys(list, files);
  return files;
}

TableExport::TableExport(TableKind kind, FileList list, fs::path table, BadFile badFile,
                         const Open& open)
    : kind_(std::move(kind)),
      list_(std::move(list)),
      count_(list_.files.size()),
      table_(std::move(table)),
      badFile_(badFile),
      file_(open(*this)),
      reading_(Count(), [this](std::size_t file) { return RowsOf(file); }) {}

TableExport::TableExport(Storage& storage, TableKind kind, FileList list, fs::path table,
                         BadFile badFile)
    : TableExport(std::move(kind), std::move(list), std::move(table), badFile,
                  [&storage](const TableExport& made) -> std::unique_ptr<TableFile> {
                    Prepare(storage, made.table_, made.list_);
                    if (made.kind_.open) return made.kind_.open(storage, made.table_);
                    return std::make_unique<TextTable>(storage, made.table_, made.kind_.header);
                  }) {}

TableExport::TableExport(std::ostream& stream, TableKind kind, FileList list, BadFile badFile)
    : TableExport(std::move(kind), std::move(list), {}, badFile,
                  [&stream](const TableExport& made) {
                    return std::make_unique<StreamTable>(stream, made.kind_.header);
                  }) {}

FileRows TableExport::RowsOf(std::size_t file) const {
  const ListedFile& listed = list_.files[file];
  FileRows rows;
  rows.notes.file = PathOf(listed, kind_.files);
  auto problem =
      ProblemOf(rows.notes.file, [&] { kind_.append(rows.notes.file, listed.name, rows); });
  if (problem) rows.notes.problem = std::move(problem);
  return rows;
}

FileNotes TableExport::Step() {
  FileRows rows = reading_.Take().value();
  ++done_;
  if (rows.notes.HaveProblems()) ++bad_;
  if (rows.notes.problem) {
    ended_ = badFile_ == BadFile::endsTheTable;
    if (!ended_) rows.text.clear();
    lastInPart_ = !rows.text.empty();
  }
  const std::size_t added = file_->Add(rows);
  if (!rows.notes.problem || added > 0) ++files_;
  rows_ += added;
  return std::move(rows.notes);
}

bool TableExport::Commit() {
  const bool filesWereBad = ended_ || files_ < done_;
  std::error_code unknown;
  if (rows_ == 0 && filesWereBad && fs::exists(table_, unknown)) return false;
  file_->Commit();
  return true;
}

void RequireNoSource(const fs::path& table, const FileList& list) {
  std::error_code unknown;
  for (const Source& source : list.sources) {
    if (source.kind == Source::Kind::list && fs::equivalent(table, source.path, unknown)) {
      throw FileError(table, "this is the list, which the table would replace");
    }
  }
  if (KindOf(fs::canonical(table, unknown)) != FileKind::other) {
    throw FileError(table, "this is an observation's file, which the table would replace");
  }
}

std::string WithoutNewTable(const fs::path& table) {
  if (table.empty()) return "The table ends there.";
  const std::string name = table.filename().string();
  std::error_code unknown;
  return fs::exists(table, unknown) ? "The earlier " + name + " stays as it was."
                                    : "No " + name + " was made.";
}

}  // namespace orvex
