#include "store/options_file.h"

#include "store/durable_file.h"
#include "store/file_error.h"

namespace orvex {
namespace {

std::filesystem::path OptionsPath(const std::filesystem::path& programFolder) {
  return programFolder / "options";
}

}  // namespace

std::optional<std::string> ReadOptionsFile(const std::filesystem::path& programFolder) try {
  std::string line = ReadFile(OptionsPath(programFolder));
  if (line.empty()) return std::nullopt;
  if (const std::size_t end = line.find('\n'); end != std::string::npos) {
    line.erase(end > 0 && line[end - 1] == '\r' ? end - 1 : end);
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
