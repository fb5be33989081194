#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/test_paths.h"

namespace orvex::test {

/// The folder of the samples: the selection beside the tests, or the one ORVEX_SAMPLES names.
inline std::filesystem::path SamplesFolder() {
  const char* whole = std::getenv("ORVEX_SAMPLES");
  return whole != nullptr ? std::filesystem::path(whole) : TestDataFolder();
}

/// What reading one malformed or borderline file does.
struct BadSample {
  std::string file;
  bool accepted = false;
  std::vector<std::string> messages;  ///< what the user is told, in order
};

/// Reads bad/manifest.json, which has one value on a line and no escapes but "\n".
inline std::vector<BadSample> BadSamples(const std::string& extension) {
  std::vector<BadSample> samples;
  std::ifstream manifest(SamplesFolder() / "bad" / "manifest.json");
  for (std::string line; std::getline(manifest, line);) {
    const std::size_t end = line.rfind('"');
    if (end == std::string::npos) continue;
    const std::size_t start = line.rfind('"', end - 1) + 1;
    std::string value = line.substr(start, end - start);
    if (const auto at = value.find("\\n"); at != std::string::npos) value.replace(at, 2, "\n");
    if (line.starts_with("  \"file\"")) samples.push_back({value, false, {}});
    if (line.starts_with("  \"expect\"") || line.starts_with("  \"after\"")) {
      samples.back().accepted = value != "reject";
    }
    if (line.starts_with("   \"")) samples.back().messages.push_back(value);
  }
  std::erase_if(samples, [&](const auto& sample) { return !sample.file.ends_with(extension); });
  return samples;
}

}  // namespace orvex::test
