#include "tables/list_lines.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "store/content_kind.h"
#include "store/format_error.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

/// Removes blanks at both ends, including the tabs of spreadsheets and the CR of Windows line
/// ends.
std::string_view Trimmed(std::string_view line) {
  constexpr std::string_view kBlank = " \t\r";
  const std::size_t first = line.find_first_not_of(kBlank);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlank) + 1 - first);
}

/// Takes the first line off `text`, with its line end.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

}  // namespace

std::vector<ListLine> ParseList(const std::string& bytes) {
  const std::string text = Decode(bytes).text;
  RequireList(text);
  // Zero bytes are a sign of UTF-16, which spreadsheets save as "Unicode text".
  if (const std::size_t zero = text.find('\0'); zero != std::string::npos) {
    const auto before = std::string_view(text).substr(0, zero);
    throw FormatError(static_cast<int>(std::ranges::count(before, '\n')) + 1,
                      "a text file in UTF-8 or Windows-1252");
  }
  std::vector<ListLine> lines;
  std::string_view rest = text;
  std::string_view restOfBytes = WithoutByteOrderMark(bytes);
  for (int number = 1; !rest.empty(); ++number) {
    const std::string_view line = Trimmed(TakeLine(rest));
    const std::string_view lineBytes = Trimmed(TakeLine(restOfBytes));
    if (!line.empty()) lines.push_back({number, std::string(line), std::string(lineBytes)});
  }
  return lines;
}

}  // namespace orvex
