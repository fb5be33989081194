#include "export/file_list.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "store/durable_file.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

/// Spreadsheets leave tabs, and files from elsewhere the CR of their line ends.
std::string_view Trimmed(std::string_view line) {
  constexpr std::string_view kBlank = " \t\r";
  const std::size_t first = line.find_first_not_of(kBlank);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlank) + 1 - first);
}

}  // namespace

std::vector<ListedFile> ParseFileList(std::string bytes) {
  const std::string text = Decode(std::move(bytes)).text;
  std::vector<ListedFile> files;
  std::string_view rest = text;
  for (int line = 1; !rest.empty(); ++line) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view name = Trimmed(rest.substr(0, end));
    if (!name.empty()) files.push_back({line, std::string(name)});
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return files;
}

FileList ReadFileList(const std::filesystem::path& path) {
  return {path, ParseFileList(ReadFile(path))};
}

std::optional<FileNumbers> NumbersOf(std::string_view name) {
  constexpr std::size_t kNone = std::string_view::npos;
  const std::size_t slash = name.rfind('/');
  if (slash != kNone) name.remove_prefix(slash + 1);
  const std::size_t first = name.find('-');
  if (first == kNone) return std::nullopt;
  const std::size_t second = name.find('-', first + 1);
  if (second == kNone) return std::nullopt;
  const std::size_t point = std::min(name.find('.', second + 1), name.size());
  return FileNumbers{name.substr(0, first), name.substr(first + 1, second - first - 1),
                     name.substr(second + 1, point - second - 1)};
}

}  // namespace orvex
