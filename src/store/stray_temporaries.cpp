#include "store/stray_temporaries.h"

#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <string_view>
#include <system_error>

#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = ".orvex-";
constexpr std::string_view kSuffix = ".tmp";
constexpr std::chrono::hours kLongAgo(24);

/// The process whose number a temporary's name holds; 0 for any other name.
pid_t ProcessOf(std::string_view name) {
  if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix)) return 0;
  name.remove_prefix(kPrefix.size());
  pid_t process = 0;
  const auto read = std::from_chars(name.data(), name.data() + name.size(), process);
  const bool good = read.ec == std::errc{} && *read.ptr == '-' && process > 0;
  return good ? process : 0;
}

bool IsGone(pid_t process) {
  return ::kill(process, 0) != 0 && errno == ESRCH;
}

}  // namespace

std::string TemporaryName(int number) {
  return std::string(kPrefix) + std::to_string(::getpid()) + "-" + std::to_string(number) +
         std::string(kSuffix);
}

void RemoveStrayTemporaries(Storage& storage, const fs::path& folder) {
  std::error_code failure;
  const auto now = fs::file_time_type::clock::now();
  // What cannot be read or removed stays: nothing depends on it.
  auto entries = fs::directory_iterator(folder.empty() ? fs::path(".") : folder, failure);
  for (; !failure && entries != fs::directory_iterator(); entries.increment(failure)) {
    const pid_t process = ProcessOf(entries->path().filename().native());
    if (process == 0 || !IsGone(process)) continue;
    std::error_code unknown;
    const auto written = entries->last_write_time(unknown);
    if (!unknown && now - written > kLongAgo) storage.Unlink(entries->path().c_str());
  }
}

}  // namespace orvex
