#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace orvex::test {

/// The folder of the samples: the selection beside the tests, or the one ORVEX_SAMPLES names.
inline std::filesystem::path SamplesFolder() {
  const char* whole = std::getenv("ORVEX_SAMPLES");
  return whole != nullptr ? whole : ORVEX_TEST_DATA;
}

/// The files of `folder` with `extension`.
inline std::vector<std::filesystem::path> SampleFiles(const std::filesystem::path& folder,
                                                      std::string_view extension) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == extension) files.push_back(entry.path());
  }
  return files;
}

/// What reading one malformed or borderline file does.
struct BadSample {
  std::string file;
  std::string expect;                 ///< "accept", "repair", "ask-version" or "reject"
  std::string after;                  ///< how it ends once the version question is answered
  std::vector<std::string> messages;  ///< what the user is told, in order

  bool Accepted() const { return (expect == "ask-version" ? after : expect) != "reject"; }
};

/// Reads bad/manifest.json, which has one value on a line and no escapes but "\n".
inline std::vector<BadSample> BadSamples(std::string_view extension) {
  std::vector<BadSample> samples;
  std::ifstream manifest(SamplesFolder() / "bad" / "manifest.json");
  for (std::string line; std::getline(manifest, line);) {
    const auto value = [&line] {
      const std::size_t colon = line.find("\": ");
      const std::size_t start = line.find('"', colon == std::string::npos ? 0 : colon + 3) + 1;
      std::string text = line.substr(start, line.rfind('"') - start);
      if (const auto escape = text.find("\\n"); escape != std::string::npos) {
        text.replace(escape, 2, "\n");
      }
      return text;
    };
    if (line.find("\"file\": ") != std::string::npos) {
      samples.push_back({value(), "", "", {}});
    } else if (line.find("\"expect\": ") != std::string::npos) {
      samples.back().expect = value();
    } else if (line.find("\"after\": ") != std::string::npos) {
      samples.back().after = value();
    } else if (line.starts_with("   \"")) {
      samples.back().messages.push_back(value());
    }
  }
  std::erase_if(samples,
                [&](const BadSample& sample) { return !sample.file.ends_with(extension); });
  return samples;
}

}  // namespace orvex::test
