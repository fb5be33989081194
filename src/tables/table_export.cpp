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

/// How many bytes to collect before writing them.
constexpr std::size_t kPortion = std::size_t{256} * 1024;

/// `warnOf`, bound to one file.
Warn Of(const fs::path& file, const WarnOf& warnOf) {
  return [&file, &warnOf](const std::string& warning) {
    if (warnOf) warnOf(file, warning);
  };
}

TableKind EpsData(const TableWarnings& warnings) {
  return {.fileName = "EPSDATA.TXT",
          .extension = ".eps",
          .header = "",
          .append = [warnings](const auto& file, const auto&, std::string& rows) {
            AppendEpisodeRows(file, Of(file, warnings.ofReading), Of(file, warnings.ofNames), rows);
          }};
}

TableKind SurData(const TableWarnings& warnings) {
  return {.fileName = "SURDATA.TXT",
          .extension = ".sur",
          .header = "",
          .append = [warnings](const auto& file, const auto&, std::string& rows) {
            AppendSurveyRow(file, Of(file, warnings.ofNames), rows);
          }};
}

/// Checks that `table` would not replace the list, and removes stray temporary files from its
/// folder. Returns `table`.
fs::path Prepared(Storage& storage, fs::path table, const fs::path& list) {
  RequireNotTheList(table, list);
  RemoveStrayTemporaries(storage, table.parent_path());
  return table;
}

/// Throws a helpful FileError when a line of the list gives a file name, "5-12-3.eps", and not
/// the name of an observation.
void RequireBaseName(const fs::path& file, const std::string& name, const std::string& extension) {
  std::error_code unknown;
  if (HasExtension(name, extension) && !fs::exists(file, unknown)) {
    throw FileError(file, "expected the name without \"" + extension + "\" in the list");
  }
}

}  // namespace

TableKind TableOf(ExportKind kind, const TableWarnings& warnings) {
  return kind == ExportKind::epsData ? EpsData(warnings) : SurData(warnings);
}

TableExport::TableExport(Storage& storage, TableKind kind, FileList list, fs::path table,
                         BadFile badFile)
    : kind_(std::move(kind)),
      list_(std::move(list)),
      table_(Prepared(storage, std::move(table), list_.path)),
      badFile_(badFile),
      file_(storage, table_),
      text_(kind_.header) {}

std::optional<Problem> TableExport::Step() {
  const ListedFile& listed = list_.files.at(done_);
  const fs::path path = WithExtension(list_.Folder() / listed.name, kind_.extension);
  const std::size_t before = text_.size();
  std::optional<Problem> problem = ProblemOf(path, [&] {
    RequireBaseName(path, listed.name, kind_.extension);
    kind_.append(path, listed.name, text_);
  });
  ++done_;
  if (problem) {
    problem->listLine = listed.line;
    ended_ = badFile_ == BadFile::endsTheTable;
    if (!ended_) text_.resize(before);
    lastInPart_ = text_.size() > before;
  }
  if (!problem || lastInPart_) ++files_;
  rows_ += static_cast<std::size_t>(
      std::count(text_.begin() + static_cast<std::ptrdiff_t>(before), text_.end(), '\n'));
  if (text_.size() >= kPortion) WriteOut();
  return problem;
}

void TableExport::WriteOut() {
  file_.Write(text_);
  text_.clear();
}

bool TableExport::Commit() {
  const bool filesWereBad = ended_ || files_ < done_;
  std::error_code unknown;
  if (rows_ == 0 && filesWereBad && fs::exists(table_, unknown)) return false;
  WriteOut();
  file_.Commit();
  return true;
}

void RequireNotTheList(const fs::path& table, const fs::path& list) {
  std::error_code unknown;
  if (fs::equivalent(table, list, unknown)) {
    throw FileError(table, "this is the list, which the table would replace");
  }
}

std::string WithoutNewTable(const fs::path& table) {
  const std::string name = table.filename().string();
  std::error_code unknown;
  return fs::exists(table, unknown) ? "The earlier " + name + " stays as it was."
                                    : "No " + name + " was made.";
}

}  // namespace orvex
