#include "study/study_layout.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <utility>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

constexpr int kWidest = 10000;

/// The filters that are on or off, with their names in the file.
constexpr std::array<std::pair<std::string_view, bool StudyFilter::*>, 4> kSwitches = {{
    {"not_fully_coded", &StudyFilter::notFullyCoded},
    {"no_survey", &StudyFilter::noSurvey},
    {"problems", &StudyFilter::problems},
    {"mine", &StudyFilter::mine},
}};

/// Takes the text up to `end`, and `end` itself, off `rest`.
std::string_view TakeUpTo(char end, std::string_view& rest) {
  const std::string_view taken = rest.substr(0, rest.find(end));
  rest.remove_prefix(std::min(taken.size() + 1, rest.size()));
  return taken;
}

std::optional<StudyColumn> ColumnNamed(std::string_view id) {
  const auto scheme = std::ranges::find(kStudyColumns, id, &StudyColumnScheme::id);
  return scheme == kStudyColumns.end() ? std::nullopt : std::optional(scheme->column);
}

/// Takes over "date,80,shown", as the column at position `next`. False if it is not a column's.
bool TakeColumn(std::string_view value, StudyLayout& layout, std::size_t next) {
  const auto column = ColumnNamed(TakeUpTo(',', value));
  const std::string_view digits = TakeUpTo(',', value);
  int width = -1;
  const char* const end = digits.data() + digits.size();
  if (!column || std::from_chars(digits.data(), end, width).ptr != end) return false;
  const auto unplaced = layout.columns.begin() + static_cast<std::ptrdiff_t>(next);
  const auto at = std::find_if(unplaced, layout.columns.end(),
                               [&](const auto& one) { return one.column == *column; });
  if (at == layout.columns.end() || width < 0 || width > kWidest) return false;
  *at = {*column, width, value != "hidden"};
  std::rotate(unplaced, at, at + 1);
  return true;
}

}  // namespace

StudyLayout::StudyLayout() {
  for (const StudyColumnScheme& scheme : kStudyColumns) columns.push_back({scheme.column});
}

std::filesystem::path StudyLayoutPath(const std::filesystem::path& programFolder) {
  return programFolder / "study";
}

StudyLayout ParseStudyLayout(std::string_view bytes) {
  StudyLayout layout;
  std::size_t placed = 0;
  while (!bytes.empty()) {
    std::string_view value = TakeUpTo('\n', bytes);
    if (value.ends_with('\r')) value.remove_suffix(1);
    const std::string_view name = TakeUpTo('=', value);
    if (name == "column" && placed < layout.columns.size()) {
      if (TakeColumn(value, layout, placed)) ++placed;
    } else if (name == "sorted_by") {
      const auto column = ColumnNamed(TakeUpTo(',', value));
      if (column) layout.sortedBy = *column;
      layout.descending = column && value == "descending";
    } else if (name == "text") {
      layout.filter.text = value;
    } else if (name == "initials") {
      layout.filter.initials = value;
    } else if (name == "only") {
      for (const auto& [id, on] : kSwitches) layout.filter.*on |= value == id;
    }
  }
  const bool isAnyShown = std::ranges::any_of(layout.columns, &StudyLayout::Column::shown);
  for (StudyLayout::Column& column : layout.columns) column.shown |= !isAnyShown;
  return layout;
}

StudyLayout ReadStudyLayout(const std::filesystem::path& programFolder) try {
  constexpr std::size_t kEnough = std::size_t{64} * 1024;
  return ParseStudyLayout(Decode(ReadFileStart(StudyLayoutPath(programFolder), kEnough)).text);
} catch (const FileError&) {
  return {};
}

std::string FormatStudyLayout(const StudyLayout& layout) {
  std::string text;
  const auto add = [&](std::string_view name, std::string_view value) {
    text.append(name).append("=").append(OneLine(value)).append("\r\n");
  };
  for (const StudyLayout::Column& column : layout.columns) {
    add("column", std::string(SchemeOf(column.column).id) + "," + std::to_string(column.width) +
                      (column.shown ? ",shown" : ",hidden"));
  }
  add("sorted_by", std::string(SchemeOf(layout.sortedBy).id) +
                       (layout.descending ? ",descending" : ",ascending"));
  add("text", layout.filter.text);
  add("initials", layout.filter.initials);
  for (const auto& [id, on] : kSwitches) {
    if (layout.filter.*on) add("only", id);
  }
  return text;
}

void WriteStudyLayout(Storage& storage, const std::filesystem::path& programFolder,
                      const StudyLayout& layout) {
  ReplaceFile(storage, StudyLayoutPath(programFolder), FormatStudyLayout(layout));
}

}  // namespace orvex
