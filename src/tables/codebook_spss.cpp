#include "tables/codebook_spss.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "tables/csv_widths.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

constexpr std::size_t kWidestText = 32767;

constexpr std::string_view kArrangement = R"(  /ENCODING="UTF8"
  /ARRANGEMENT=DELIMITED
  /DELCASE=LINE
  /FIRSTCASE=2
  /DELIMITERS=","
  /QUALIFIER='"'
)";

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

/// The width of a text or a code, in bytes.
std::size_t WidthOf(const TidyColumn& column, std::size_t widestCell) {
  std::size_t width = std::max<std::size_t>(widestCell, 1);
  for (const ValueLabel& value : column.values) width = std::max(width, value.value.size());
  return std::min(width, kWidestText);
}

std::string FormatOf(const TidyColumn& column, std::size_t widestCell) {
  switch (column.type) {
    case ColumnType::wholeNumber:
      return "F8.0";
    case ColumnType::number:
      return "F12.7";
    case ColumnType::date:
      return "SDATE10";
    case ColumnType::time:
      return "TIME8";
    case ColumnType::text:
    case ColumnType::code:
      break;
  }
  const std::string width = std::to_string(WidthOf(column, widestCell));
  return column.IsNumeric() ? "F" + width + ".0" : "A" + width;
}

std::string Variables(const Columns& columns, const std::vector<std::size_t>& widths) {
  std::string text = "  /VARIABLES=";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    text += "\n    " + columns[i].name + " " + FormatOf(columns[i], widths[i]);
  }
  return text + ".\n";
}

std::string VariableLabels(const Columns& columns) {
  std::string text = "VARIABLE LABELS";
  std::string_view separator = "\n  ";
  for (const TidyColumn& column : columns) {
    text.append(separator).append(column.name).append(" ").append(Quoted(column.label));
    separator = "\n  /";
  }
  return text + ".\n";
}

std::string ValueLabels(const Columns& columns) {
  std::string text = "VALUE LABELS";
  std::string_view separator = "\n  ";
  for (const TidyColumn& column : columns) {
    if (column.values.empty()) continue;
    text.append(separator).append(column.name);
    for (const ValueLabel& value : column.values) {
      text += "\n    " + (column.IsNumeric() ? value.value : Quoted(value.value)) + " " +
              Quoted(value.label);
    }
    separator = "\n  /";
  }
  return text + ".\n";
}

/// Codes that are numbers would count as measured otherwise.
std::string VariableLevels(const Columns& columns) {
  std::string text = "VARIABLE LEVEL";
  for (const TidyColumn& column : columns) {
    if (column.type == ColumnType::code) text += "\n  " + column.name;
  }
  return text + " (NOMINAL).\n";
}

/// An empty cell of a number is missing by itself; a code that is a letter has to say so.
std::string MissingValues(const Columns& columns) {
  std::string text;
  for (const TidyColumn& column : columns) {
    if (column.type != ColumnType::code) continue;
    if (!column.IsNumeric()) text += "MISSING VALUES " + column.name + " (\" \").\n";
    for (const ValueLabel& value : column.values) {
      if (value.isMissing) text += "MISSING VALUES " + column.name + " (" + value.value + ").\n";
    }
  }
  return text;
}

}  // namespace

std::string SpssSyntax(TidyTable table, const std::filesystem::path& tableFile) {
  const Columns& columns = ColumnsOf(table);
  const std::string name(NameOf(table));
  return "* Encoding: UTF-8.\n* Reads " + name +
         ".csv with the types and the labels of its variables.\n" +
         "* Run it in the folder of the table: INSERT FILE=\"folder/" + name + ".sps\" CD=YES.\n" +
         "GET DATA\n  /TYPE=TXT\n  /FILE=\"" + name + ".csv\"\n" + std::string(kArrangement) +
         Variables(columns, CsvWidths(tableFile, columns.size())) + VariableLabels(columns) +
         ValueLabels(columns) + VariableLevels(columns) + MissingValues(columns) + "EXECUTE.\n";
}

}  // namespace orvex
