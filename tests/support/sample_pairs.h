#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/sample_manifest.h"

namespace orvex::test {

/// Two observations of one class among the samples.
struct SamplePair {
  std::string name;  ///< "5-12-1--5-12-2"
  std::filesystem::path first;
  std::filesystem::path second;
  std::filesystem::path truePairs;  ///< the table of the questions that are pairs
  std::filesystem::path expected;   ///< what an independent program makes of them
};

inline std::vector<SamplePair> SamplePairs() {
  const std::filesystem::path folder = SamplesFolder() / "pairs";
  const auto episodesOf = [&](const std::string& name) {
    const std::size_t first = name.find('-');
    const std::size_t second = name.find('-', first + 1);
    return folder / "EPS" / name.substr(0, first) / name.substr(first + 1, second - first - 1) /
           (name + ".eps");
  };
  std::vector<SamplePair> pairs;
  for (const auto& entry : std::filesystem::directory_iterator(folder / "true-pairs")) {
    const std::string name = entry.path().stem().string();
    const std::size_t gap = name.find("--");
    pairs.push_back({name, episodesOf(name.substr(0, gap)), episodesOf(name.substr(gap + 2)),
                     entry.path(), folder / "expected" / (name + ".json")});
  }
  std::ranges::sort(pairs, {}, &SamplePair::name);
  return pairs;
}

}  // namespace orvex::test
