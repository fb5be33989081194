#include "export/table_export.h"

#include <algorithm>
#include <utility>

#include "export/episode_rows.h"
#include "export/survey_row.h"

namespace orvex {
namespace {

/// How much is gathered before it is written.
constexpr std::size_t kPortion = std::size_t{256} * 1024;

}  // namespace

TableKind EpsData(WarnOf warnOf) {
  return {.fileName = "EPSDATA.TXT",
          .extension = ".eps",
          .header = "",
          .append = [warnOf = std::move(warnOf)](const auto& file, std::string& rows) {
            const auto warn = [&](const std::string& warning) {
              if (warnOf) warnOf(file, warning);
            };
            AppendEpisodeRows(file, warn, rows);
          }};
}

TableKind SurData() {
  return {.fileName = "SURDATA.TXT",
          .extension = ".sur",
          .header = "",
          .append = [](const auto& file, std::string& rows) { AppendSurveyRow(file, rows); }};
}

TableExport::TableExport(Storage& storage, TableKind kind, FileList list,
                         std::filesystem::path table, BadFile badFile)
    : kind_(std::move(kind)),
      list_(std::move(list)),
      table_(std::move(table)),
      badFile_(badFile),
      file_(storage, table_),
      text_(kind_.header) {}

std::optional<Problem> TableExport::Step() {
  const ListedFile& listed = list_.files.at(done_);
  const std::filesystem::path path = list_.Folder() / (listed.name + kind_.extension);
  const std::size_t before = text_.size();
  std::optional<Problem> problem = ProblemOf(path, [&] { kind_.append(path, text_); });
  ++done_;
  if (problem) {
    problem->listLine = listed.line;
    ended_ = badFile_ == BadFile::endsTheTable;
    if (!ended_) text_.resize(before);
  }
  rows_ += static_cast<std::size_t>(
      std::count(text_.begin() + static_cast<std::ptrdiff_t>(before), text_.end(), '\n'));
  if (text_.size() >= kPortion) WriteOut();
  return problem;
}

void TableExport::WriteOut() {
  file_.Write(text_);
  text_.clear();
}

void TableExport::Commit() {
  WriteOut();
  file_.Commit();
}

}  // namespace orvex
