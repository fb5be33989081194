#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "tables/tidy_tables.h"

namespace orvex {

/// In what form the variables of a table are described: as a table of its own, or as a script that
/// reads the table with the types and the labels of its variables.
enum class CodebookKind { csv, r, spss };

/// "questions-codebook.csv", "questions.R", "questions.sps".
std::string CodebookFileName(TidyTable table, CodebookKind kind);

/// The text of the codebook for the finished table at `tableFile`. Throws FileError when that
/// cannot be read.
std::string Codebook(TidyTable table, CodebookKind kind, const std::filesystem::path& tableFile);

/// A row of the codebook: a variable, and one of its values if it has any.
struct CodebookRow {
  std::string_view variable;
  std::string_view label;
  std::string_view type;
  std::string_view value;
  std::string_view valueLabel;
};
void ForEachCodebookRow(TidyTable table, const std::function<void(const CodebookRow&)>& take);

}  // namespace orvex
