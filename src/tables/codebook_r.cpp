#include "tables/codebook_r.h"

#include <array>
#include <charconv>

#include "store/text_encoding.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

/// The beginning of the script, with "TABLE" in place of the table's name. R has no other word for
/// the place of a script than what `source` and `Rscript` (which writes a blank as "~+~") remember
/// of it; where they remember none, the table is looked for in the working folder.
constexpr std::string_view kBeginning =
    R"(# Reads TABLE.csv, which lies beside this script, into `TABLE`, with the types and the labels
# of its variables.
TABLE <- local({
  sourced <- lapply(rev(sys.frames()), function(frame) {
    if (is.character(frame$ofile) && !isTRUE(frame$chdir)) frame$ofile
    else if (!is.null(frame$ofile)) "TABLE.R"
  })
  run <- sub("^--file=", "", grep("^--file=", commandArgs(), value = TRUE))
  script <- c(unlist(sourced), gsub("~+~", " ", run, fixed = TRUE), "TABLE.R")[1]
  table <- file.path(dirname(script), "TABLE.csv")
  if (!file.exists(table)) table <- "TABLE.csv"
  # A code that the codebook does not have stands for itself.
  labelled <- function(codes, values, labels) {
    others <- setdiff(codes, c(values, NA))
    factor(codes, levels = c(values, others), labels = c(labels, others))
  }
  rows <- read.csv(table, na.strings = "", encoding = "UTF-8",
                   colClasses = c()";

std::string BeginningFor(std::string_view table) {
  constexpr std::string_view kName = "TABLE";
  std::string text(kBeginning);
  for (auto at = text.find(kName); at != std::string::npos; at = text.find(kName, at)) {
    text.replace(at, kName.size(), table);
  }
  return text;
}

/// `text` as a literal, in ASCII alone, so that R reads it in any locale.
std::string Quoted(std::string_view text) {
  constexpr char32_t kFirstBeyondAscii = 0x80;
  std::string quoted = "\"";
  while (!text.empty()) {
    const char first = text.front();
    const char32_t character = TakeCharacter(text);
    if (character >= kFirstBeyondAscii) {
      std::array<char, 8> digits{};
      const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                     static_cast<std::uint32_t>(character), 16);
      quoted += "\\u{" + std::string(digits.data(), end.ptr) + "}";
    } else {
      if (first == '"' || first == '\\') quoted += '\\';
      quoted += first;
    }
  }
  return quoted + '"';
}

std::string_view ClassOf(ColumnType type) {
  switch (type) {
    case ColumnType::wholeNumber:
    case ColumnType::number:
      return "numeric";
    case ColumnType::date:
      return "Date";
    case ColumnType::text:
    case ColumnType::time:
    case ColumnType::code:
      break;
  }
  return "character";
}

/// "c("Yes", "No")" of the values' labels, or of the values themselves.
template <typename Part>
std::string ListOf(const std::vector<ValueLabel>& values, Part part) {
  std::string list;
  for (const ValueLabel& value : values) {
    list += (list.empty() ? "c(" : ", ") + Quoted(value.*part);
  }
  return list + ")";
}

}  // namespace

std::string RScript(TidyTable table) {
  const std::string name(NameOf(table));
  std::string text = BeginningFor(name);
  std::string_view separator = "\n";
  for (const TidyColumn& column : ColumnsOf(table)) {
    text.append(separator).append("    ").append(column.name).append(" = \"");
    text.append(ClassOf(column.type)).append("\"");
    separator = ",\n";
  }
  text += "))\n";
  for (const TidyColumn& column : ColumnsOf(table)) {
    const std::string variable = "rows$" + column.name;
    if (column.type == ColumnType::code) {
      text.append("  ").append(variable).append(" <- labelled(").append(variable);
      text.append(",\n    ").append(ListOf(column.values, &ValueLabel::value));
      text.append(",\n    ").append(ListOf(column.values, &ValueLabel::label)).append(")\n");
    }
    text.append("  attr(").append(variable).append(", \"label\") <- ");
    text.append(Quoted(column.label)).append("\n");
  }
  return text + "  rows\n})\n";
}

}  // namespace orvex
