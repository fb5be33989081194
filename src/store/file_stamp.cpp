#include "store/file_stamp.h"

#include <sys/stat.h>

namespace orvex {

FileStamp StampOf(const std::string& path) {
  struct stat file = {};
  if (path.empty() || ::stat(path.c_str(), &file) != 0) return {};
  constexpr std::int64_t kPerSecond = 1000000000;
  return {file.st_ino, file.st_size, file.st_mtim.tv_sec * kPerSecond + file.st_mtim.tv_nsec};
}

}  // namespace orvex
