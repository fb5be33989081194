#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/test_paths.h"

namespace orvex::test {

/// The folder of the samples: the one that ORVEX_SAMPLES names, or the selection next to the tests.
inline std::filesystem::path SamplesFolder() {
  const char* whole = std::getenv("ORVEX_SAMPLES");
  return whole != nullptr ? std::filesystem::path(whole) : TestDataFolder();
}

/// The expected result of reading one malformed or borderline file.
struct BadSample {
  std::string file;
  bool accepted = false;
  std::vector<std::string> messages;  ///< what the user is told, in order
};

/// Reads bad/manifest.json, which has one value per line and "\n" as its only escape.
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
