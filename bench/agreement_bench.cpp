// Compares two observers of a very long class, and those of a folder of pairs.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "agreement/agreement_study.h"
#include "store/eps_writer.h"

namespace orvex {
namespace {

constexpr std::array kWords = {"what",  "does",    "the",  "author",  "mean",    "when",
                               "he",    "says",    "that", "Atticus", "why",     "would",
                               "Scout", "believe", "jury", "anyone",  "chapter", "justice",
                               "where", "is",      "it",   "written", "decide",  "Où"};

/// The questions that are asked in a class: some long, some short, and "Why?" again and again.
std::vector<std::string> AskedQuestions(std::size_t count, std::mt19937& random) {
  std::vector<std::string> asked;
  while (asked.size() < count) {
    std::string text = "Why";
    if (random() % 5 != 0) {
      for (std::size_t words = 3 + random() % 9; words > 0; --words) {
        text += std::string(" ") + kWords[random() % kWords.size()];
      }
    }
    asked.push_back(text + "?");
  }
  return asked;
}

/// The class as an observer writes it down: some questions are missed, some are cut short.
EpsObservation Observed(const std::vector<std::string>& asked, const Identity& identity,
                        std::mt19937& random) {
  EpsObservation observed;
  observed.header.identity = identity;
  observed.header.ObservDate = "03-14-2026";
  observed.header.StartTime = "09:05:12";
  constexpr std::size_t kEpisodes = 10;
  observed.Episodes.resize(kEpisodes);
  for (Episode& episode : observed.Episodes) {
    for (int i = 0; i < 4; ++i) {
      const auto activity = static_cast<std::int16_t>(1 + random() % kActivityCount);
      episode.segments.emplace_back().SetData(activity, static_cast<float>(60 + random() % 120));
    }
  }
  for (std::size_t i = 0; i < asked.size(); ++i) {
    if (random() % 10 == 0) continue;
    const std::size_t length = random() % 4 == 0 ? asked[i].size() * 2 / 3 : asked[i].size();
    const std::size_t episode = i * kEpisodes / asked.size();
    DimensionTexts coded;
    for (const Dimension dimension : kLetteredDimensions) {
      coded[dimension] = SchemeOf(dimension).letters.substr(random() % 8 == 0 ? 1 : 0, 1);
    }
    observed.Episodes[episode].questions.emplace_back().SetValue(
        asked[i].substr(0, length), coded, static_cast<std::int16_t>(episode + 1),
        static_cast<std::int16_t>(1 + random() % 4));
  }
  return observed;
}

void CompareLongClasses(benchmark::State& state) {
  std::mt19937 random(4);
  const auto asked = AskedQuestions(static_cast<std::size_t>(state.range(0)), random);
  const ObservedClass first = {.observation =
                                   Observed(asked, {"AB", "5", "12", "1", "28"}, random)};
  const ObservedClass second = {.observation =
                                    Observed(asked, {"MN", "5", "12", "2", "28"}, random)};
  for (auto _ : state) benchmark::DoNotOptimize(Compare(first, second, {}));
}
BENCHMARK(CompareLongClasses)->Arg(100)->Arg(500)->Arg(2200)->Unit(benchmark::kMillisecond);

void CompareStudy(benchmark::State& state) {
  std::string name = (std::filesystem::temp_directory_path() / "orvex-bench-XXXXXX").string();
  const std::filesystem::path folder = mkdtemp(name.data());
  std::mt19937 random(4);
  std::vector<std::filesystem::path> files;
  for (int pair = 1; pair <= state.range(0); ++pair) {
    const auto asked = AskedQuestions(60, random);
    for (const char* number : {"1", "2"}) {
      const Identity identity = {number, "5", std::to_string(pair), number, "28"};
      const EpsObservation observed = Observed(asked, identity, random);
      files.push_back(folder / (identity.ClassId() + ".eps"));
      std::ofstream(files.back(), std::ios::binary)
          << FormatEps(observed.header, observed.Episodes);
    }
  }
  for (auto _ : state) benchmark::DoNotOptimize(CompareAll(files, {}));
  std::filesystem::remove_all(folder);
}
BENCHMARK(CompareStudy)->Arg(500)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvex
