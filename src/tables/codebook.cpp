#include "tables/codebook.h"

#include "tables/codebook_r.h"
#include "tables/codebook_spss.h"
#include "tables/csv.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

std::string CodebookTable(TidyTable table) {
  std::string text;
  Csv csv(text);
  for (const char* name : {"variable", "label", "type", "value", "value_label"}) csv.Code(name);
  csv.EndLine();
  ForEachCodebookRow(table, [&](const CodebookRow& row) {
    csv.Code(row.variable);
    csv.Text(row.label);
    csv.Code(row.type);
    csv.Code(row.value);
    csv.Text(row.valueLabel);
    csv.EndLine();
  });
  return text;
}

}  // namespace

std::string CodebookFileName(TidyTable table, CodebookKind kind) {
  const std::string name(NameOf(table));
  switch (kind) {
    case CodebookKind::r:
      return name + ".R";
    case CodebookKind::spss:
      return name + ".sps";
    case CodebookKind::csv:
      break;
  }
  return name + "-codebook.csv";
}

std::string Codebook(TidyTable table, CodebookKind kind, const std::filesystem::path& tableFile) {
  switch (kind) {
    case CodebookKind::r:
      return RScript(table);
    case CodebookKind::spss:
      return SpssSyntax(table, tableFile);
    case CodebookKind::csv:
      break;
  }
  return CodebookTable(table);
}

void ForEachCodebookRow(TidyTable table, const std::function<void(const CodebookRow&)>& take) {
  for (const TidyColumn& column : ColumnsOf(table)) {
    CodebookRow row = {.variable = column.name,
                       .label = column.label,
                       .type = NameOf(column.type),
                       .value = "",
                       .valueLabel = ""};
    if (column.values.empty()) take(row);
    for (const ValueLabel& value : column.values) {
      row.value = value.value;
      row.valueLabel = value.label;
      take(row);
    }
  }
}

}  // namespace orvex
