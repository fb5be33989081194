#include "agreement/pair_table.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <system_error>
#include <vector>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/numbers.h"
#include "store/printable_text.h"
#include "store/text_encoding.h"
#include "study/file_kind.h"

namespace orvex {
namespace {

constexpr std::string_view kHeader = "first,second";

/// A cell without the blanks and the quotes around it.
std::string_view CellText(std::string_view cell) {
  cell = WithoutBlanks(cell);
  if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') {
    cell = WithoutBlanks(cell.substr(1, cell.size() - 2));
  }
  return cell;
}

/// The cells of the table's two columns, as far as the line has them.
struct Line {
  int number = 0;  ///< counted from 1
  std::vector<std::string_view> cells;

  bool IsEmpty() const {
    return std::ranges::all_of(cells, &std::string_view::empty) && cells.size() < 2;
  }
};

/// Takes the next line off `text`. Its cells end at a comma or, as some spreadsheets write them, at
/// a semicolon or a tab.
Line TakeLine(std::string_view& text, int number) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view rest = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (rest.ends_with('\r')) rest.remove_suffix(1);
  Line line = {number, {}};
  for (;;) {
    const std::size_t cellEnd = rest.find_first_of(",;\t");
    line.cells.push_back(CellText(rest.substr(0, cellEnd)));
    if (cellEnd == std::string_view::npos) return line;
    rest.remove_prefix(cellEnd + 1);
  }
}

/// The position of the question that a cell names; nothing for an empty cell.
std::optional<std::size_t> QuestionOf(const Line& line, std::size_t column, std::size_t count) {
  const std::string_view cell = line.cells[column];
  if (cell.empty()) return std::nullopt;
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), number);
  if (error != std::errc() || end != cell.data() + cell.size() || number < 1 || number > count) {
    const std::string of = column == 0 ? "the first observer" : "the second observer";
    const std::string expected =
        count == 0 ? "an empty cell, because " + of + " has no questions"
                   : "the number of a question of " + of + ", from 1 to " + std::to_string(count);
    throw FormatError({line.number, static_cast<int>(column) + 1},
                      "expected " + expected + ", found " + PrintableInQuotes(cell));
  }
  return number - 1;
}

/// Where each question of an observer stands in the table.
class Places {
 public:
  explicit Places(std::size_t questions) : lines_(questions) {}
  /// Throws FormatError when the table has the question already.
  void Add(std::size_t question, int line, int column) {
    if (lines_[question] != 0) {
      throw FormatError({line, column}, "question " + std::to_string(question + 1) +
                                            " stands in line " + std::to_string(lines_[question]) +
                                            " already");
    }
    lines_[question] = line;
  }
  int LineOf(std::size_t question) const { return lines_[question]; }

 private:
  std::vector<int> lines_;  ///< 0 for a question that has not come yet
};

/// Throws FormatError when two pairs cross.
void RequireOrder(const std::vector<std::optional<std::size_t>>& partners, const Places& places) {
  std::optional<std::size_t> last;
  for (std::size_t first = 0; first < partners.size(); ++first) {
    if (!partners[first]) continue;
    if (last && *partners[first] < *partners[*last]) {
      const auto [before, after] = std::minmax({places.LineOf(*last), places.LineOf(first)});
      throw FormatError(FilePlace{after},
                        "the pair crosses the one of line " + std::to_string(before) +
                            ": both observers heard the questions in the same order");
    }
    last = first;
  }
}

}  // namespace

std::string PairTableText(const QuestionPairs& pairs) {
  const auto cell = [](std::optional<std::size_t> question) {
    return question ? std::to_string(*question + 1) : std::string();
  };
  std::string text = std::string(kHeader) + "\r\n";
  for (const QuestionPair& pair : pairs)
    text += cell(pair.first) + "," + cell(pair.second) + "\r\n";
  return text;
}

QuestionPairs ParsePairTable(const std::string& bytes, std::size_t firstCount,
                             std::size_t secondCount) {
  const std::string decoded = Decode(bytes).text;
  std::string_view text = decoded;
  const Line header = TakeLine(text, 1);
  if (header.cells.size() != 2 || header.cells[0] != "first" || header.cells[1] != "second") {
    throw FormatError(1, "the header \"" + std::string(kHeader) + "\"");
  }
  std::vector<std::optional<std::size_t>> partners(firstCount);
  Places firstPlaces(firstCount);
  Places secondPlaces(secondCount);
  for (int number = 2; !text.empty(); ++number) {
    const Line line = TakeLine(text, number);
    if (line.IsEmpty()) continue;
    if (line.cells.size() != 2) {
      throw FormatError(number, "two cells, found " + std::to_string(line.cells.size()));
    }
    const auto first = QuestionOf(line, 0, firstCount);
    const auto second = QuestionOf(line, 1, secondCount);
    if (!first && !second)
      throw FormatError(number, "the number of a question in one of the cells");
    if (first) firstPlaces.Add(*first, number, 1);
    if (second) secondPlaces.Add(*second, number, 2);
    if (first) partners[*first] = second;
  }
  RequireOrder(partners, firstPlaces);
  return PairsFrom(partners, secondCount);
}

void WritePairTable(const std::filesystem::path& file, const QuestionPairs& pairs,
                    Storage& storage) {
  std::error_code unknown;
  if (KindOf(std::filesystem::canonical(file, unknown)) != FileKind::other) {
    throw FileError(file, "this is an observation's file, which the pairs would replace");
  }
  ReplaceFile(storage, file, PairTableText(pairs));
}

QuestionPairs ReadPairTable(const std::filesystem::path& file, std::size_t firstCount,
                            std::size_t secondCount) {
  return ParsePairTable(ReadFile(file), firstCount, secondCount);
}

}  // namespace orvex
