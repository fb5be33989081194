#include "store/options_file.h"

#include <cstddef>
#include <string_view>

#include "store/durable_file.h"
#include "store/file_error.h"

namespace orvex {
namespace {

std::filesystem::path OptionsPath(const std::filesystem::path& programFolder) {
  return programFolder / "options";
}

}  // namespace

std::optional<std::string> ReadOptionsFile(const std::filesystem::path& programFolder) try {
  constexpr std::size_t kMostBytes = 8192;  // twice what the system takes for a path
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::string line = ReadFileStart(OptionsPath(programFolder), kMostBytes);
  const std::size_t end = line.find('\n');
  if (end == std::string::npos && line.size() == kMostBytes) return std::nullopt;
  if (line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
  if (line.empty()) return std::nullopt;
  if (const std::size_t stop = line.find('\n'); stop != std::string::npos) {
    line.erase(stop > 0 && line[stop - 1] == '\r' ? stop - 1 : stop);
  }
  return line;
} catch (const FileError&) {
  return std::nullopt;
}

void WriteOptionsFile(Storage& storage, const std::filesystem::path& programFolder,
                      const std::string& dataPath) {
  ReplaceFile(storage, OptionsPath(programFolder), dataPath + "\r\n");
}

}  // namespace orvex
