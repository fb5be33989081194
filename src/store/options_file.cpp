#include "store/options_file.h"

#include <cstddef>
#include <string_view>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

constexpr std::size_t kLongestPath = 4096;  // the system's limit, with the terminating zero

}  // namespace

std::filesystem::path OptionsPath(const std::filesystem::path& programFolder) {
  return programFolder / "options";
}

std::optional<std::string> ParseOptions(std::string_view bytes) {
  const std::string_view text = WithoutByteOrderMark(bytes);
  std::string_view line = text.substr(0, text.find('\n'));
  if (line.ends_with('\r')) line.remove_suffix(1);
  const bool isPath = line.size() < kLongestPath && line.find('\0') == std::string_view::npos;
  if (text.empty() || !isPath) return std::nullopt;
  return std::string(line);
}

std::optional<std::string> ReadOptionsFile(const std::filesystem::path& programFolder) try {
  return ParseOptions(ReadFileStart(OptionsPath(programFolder), 2 * kLongestPath));
} catch (const FileError&) {
  return std::nullopt;
}

std::string FormatOptions(const std::string& dataPath) {
  return dataPath + "\r\n";
}

void WriteOptionsFile(Storage& storage, const std::filesystem::path& programFolder,
                      const std::string& dataPath) {
  ReplaceFile(storage, OptionsPath(programFolder), FormatOptions(dataPath));
}

}  // namespace orvex
