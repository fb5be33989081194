#include "tables/csv_widths.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <string>
#include <string_view>

#include "store/file_error.h"

namespace orvex {
namespace {

void Widen(std::string_view line, std::vector<std::size_t>& widths) {
  std::size_t column = 0;
  std::size_t width = 0;
  bool inQuotes = false;
  const auto endCell = [&] {
    if (column < widths.size()) widths[column] = std::max(widths[column], width);
    ++column;
    width = 0;
  };
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') {
      // Of a doubled quote, the second one counts.
      const bool isDoubled = !inQuotes && i > 0 && line[i - 1] == '"';
      if (isDoubled) ++width;
      inQuotes = !inQuotes;
    } else if (line[i] == ',' && !inQuotes) {
      endCell();
    } else if (line[i] != '\r') {
      ++width;
    }
  }
  endCell();
}

}  // namespace

std::vector<std::size_t> CsvWidths(const std::filesystem::path& file, std::size_t columns) {
  std::vector<std::size_t> widths(columns);
  errno = 0;
  std::ifstream table(file, std::ios::binary);
  std::string line;
  std::getline(table, line);
  while (std::getline(table, line)) Widen(line, widths);
  if (!table.eof()) throw FileError(file, errno == 0 ? EIO : errno);
  return widths;
}

}  // namespace orvex
