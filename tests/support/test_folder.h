#pragma once

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "support/test_paths.h"

namespace orvex::test {

/// An empty folder for one test, removed at the end.
class TestFolder {
 public:
  TestFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "orvex-test-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

inline std::string FileBytes(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

inline void PutFile(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

/// Writes a file and backdates it by a year.
inline void PutOldFile(const std::filesystem::path& path, std::string_view bytes) {
  PutFile(path, bytes);
  constexpr auto kMoment = std::filesystem::file_time_type(std::chrono::hours(-24 * 365));
  std::filesystem::last_write_time(path, kMoment);
}

inline std::filesystem::path TestData(std::string_view name) {
  return TestDataFolder() / name;
}

}  // namespace orvex::test
