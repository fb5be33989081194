// Reads and writes a large observation, compared with reading the same bytes line by line.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include "store/eps_reader.h"
#include "store/eps_writer.h"
#include "store/storage.h"

namespace orvex {
namespace {

struct NoEvents : EpsReadEvents {
  bool ContinueWithEarlierVersion() override { return true; }
  void FirstSegmentRepaired(int) override {}
};

/// 100 episodes with ten segments and 60 questions each.
EpsObservation LargeObservation() {
  constexpr std::array kQuestions = {"What does Atticus mean when he says that, and to whom?",
                                     "Why?", "Is this going to be on the test?",
                                     "Où est-ce que l'histoire se passe?"};
  constexpr std::array kNames = {"Darnell", "Mei-Ling", "Zoë", "", "O'Brien"};
  constexpr std::array kSources = {"T", "T", "T", "S", "S", "S", "S"};
  EpsObservation large;
  large.header.identity = {"AB", "5", "12", "3", "28"};
  large.header.ObservDate = "03-14-2001";
  large.header.StartTime = "09:05:12";
  for (int ep = 1; ep <= 100; ++ep) {
    Episode& episode = large.Episodes.emplace_back();
    episode.Descript = "Discussion of To Kill a Mockingbird, ch. " + std::to_string(ep);
    episode.bReview.push_back(ep % 3 == 0 ? 'Y' : 'N');
    episode.offtask = static_cast<float>(ep % 7) / 28;
    for (int sg = 1; sg <= 10; ++sg) {
      const auto activity = static_cast<std::int16_t>((ep + sg) % kActivityCount + 1);
      SegmentData& segment = episode.segments.emplace_back();
      segment.SetData(activity, static_cast<float>(30 + sg));
      if (ActivityOf(activity).carriesAbout) segment.aboutdata = "growing up";
      if (SubCategoryOf(activity)) segment.fSubCat = 1;
    }
    for (std::size_t q = 0; q < 60; ++q) {
      const auto segment = static_cast<std::int16_t>(q / 6 + 1);
      episode.questions.emplace_back().SetValue(kQuestions[q % kQuestions.size()],
                                                {kSources[q % kSources.size()], "Y", "A", "N", "H",
                                                 kNames[q % kNames.size()], "N", "", "U"},
                                                static_cast<std::int16_t>(ep), segment);
    }
  }
  return large;
}

/// The observation in a file of its own, which is removed at the end.
class LargeFile {
 public:
  LargeFile()
      : path_(std::filesystem::temp_directory_path() /
              ("orvex-bench-" + std::to_string(::getpid()) + ".eps")) {
    Storage storage;
    const EpsObservation large = LargeObservation();
    WriteEpsFile(storage, path_, large.header, large.Episodes);
  }
  ~LargeFile() { std::filesystem::remove(path_); }
  LargeFile(const LargeFile&) = delete;
  LargeFile& operator=(const LargeFile&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  void Processed(benchmark::State& state) const {
    const auto size = static_cast<std::int64_t>(std::filesystem::file_size(path_));
    state.SetBytesProcessed(state.iterations() * size);
  }

 private:
  std::filesystem::path path_;
};

void PlainLineReading(benchmark::State& state) {
  const LargeFile file;
  for (auto _ : state) {
    std::ifstream stream(file.Path(), std::ios::binary);
    for (std::string line; std::getline(stream, line);) benchmark::DoNotOptimize(line);
  }
  file.Processed(state);
}
BENCHMARK(PlainLineReading)->Unit(benchmark::kMicrosecond);

void ReadingAnObservation(benchmark::State& state) {
  const LargeFile file;
  NoEvents events;
  for (auto _ : state) benchmark::DoNotOptimize(ReadEpsFile(file.Path(), events));
  file.Processed(state);
}
BENCHMARK(ReadingAnObservation)->Unit(benchmark::kMicrosecond);

void FormattingAnObservation(benchmark::State& state) {
  const LargeFile file;
  const EpsObservation large = LargeObservation();
  for (auto _ : state) benchmark::DoNotOptimize(FormatEps(large.header, large.Episodes));
  file.Processed(state);
}
BENCHMARK(FormattingAnObservation)->Unit(benchmark::kMicrosecond);

void SavingAnObservation(benchmark::State& state) {
  const LargeFile file;
  const EpsObservation large = LargeObservation();
  Storage storage;
  for (auto _ : state) WriteEpsFile(storage, file.Path(), large.header, large.Episodes);
  file.Processed(state);
}
BENCHMARK(SavingAnObservation)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace orvex
