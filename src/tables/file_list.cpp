#include "tables/file_list.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <system_error>
#include <utility>

#include "store/content_kind.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/printable_text.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Removes blanks at both ends, including the tabs of spreadsheets and the CR of Windows line
/// ends.
std::string_view Trimmed(std::string_view line) {
  constexpr std::string_view kBlank = " \t\r";
  const std::size_t first = line.find_first_not_of(kBlank);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(kBlank) + 1 - first);
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

}  // namespace

std::vector<ListedFile> ParseFileList(std::string bytes) {
  const std::string text = Decode(std::move(bytes)).text;
  RequireList(text);
  // Zero bytes are a sign of UTF-16, which spreadsheets save as "Unicode text".
  if (const std::size_t zero = text.find('\0'); zero != std::string::npos) {
    const auto before = std::string_view(text).substr(0, zero);
    throw FormatError(static_cast<int>(std::ranges::count(before, '\n')) + 1,
                      "a text file in UTF-8 or Windows-1252");
  }
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

FileList ReadFileList(const fs::path& path) {
  constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;
  std::string bytes = ReadFileStart(path, kMostBytes + 1);
  if (bytes.size() > kMostBytes) {
    throw FileError(path, "more than 16 MB, which is too large for a list of observations");
  }
  return {path, ParseFileList(std::move(bytes))};
}

fs::path WithExtension(const fs::path& base, std::string_view extension) {
  fs::path usual = fs::path(base).concat(extension);
  std::error_code unknown;
  if (fs::exists(usual, unknown)) return usual;
  fs::path other = fs::path(base).concat(UpperCase(extension));
  if (fs::exists(other, unknown)) return other;
  return usual;
}

bool HasExtension(const fs::path& name, std::string_view extension) {
  const fs::path own = name.extension();
  return own == extension || own == UpperCase(extension);
}

std::vector<Repeat> RepeatsIn(const FileList& list) {
  std::vector<Repeat> repeats;
  std::map<std::string_view, int> lines;
  for (const ListedFile& file : list.files) {
    const auto [first, isNew] = lines.try_emplace(file.name, file.line);
    if (isNew) continue;
    repeats.push_back({file.line, Printable(file.name) + " is in line " +
                                      std::to_string(first->second) + " already"});
  }
  return repeats;
}

}  // namespace orvex
