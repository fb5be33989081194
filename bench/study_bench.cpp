// Measures the study's window without the window: how long a folder of many observations takes to
// fill the rows, to sort and to search them, and how long the longest tick holds up the user.
// Usage: study_bench FOLDER [OBSERVATIONS] [QUESTIONS EACH]. FOLDER is made and filled first if it
// is not there, and stays, to be measured again.

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

#include "store/eps_writer.h"
#include "store/paths.h"
#include "store/sur_file.h"
#include "study/study.h"

namespace {

namespace fs = std::filesystem;
using namespace orvex;
using Moment = std::chrono::steady_clock::time_point;

/// How long ago `start` was, in milliseconds.
double Since(Moment start) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

Moment Now() {
  return std::chrono::steady_clock::now();
}

void Put(const fs::path& file, const std::string& bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
}

constexpr const char* kTexts[] = {
    "What does Atticus mean when he says that, and to whom?",
    "Why?",
    "Who agrees with Mei-Ling?",
    "Où est-ce que l'histoire se passe?",
    "Is this going to be on the test?",
    "Can anyone find a line in the chapter that supports what Darnell just said?"};

EpisodeList Episodes(int seed, int questions) {
  EpisodeList episodes(6);
  for (Episode& episode : episodes) {
    for (int i = 0; i < 4; ++i) {
      const auto activity = static_cast<std::int16_t>(1 + (seed + i) % kActivityCount);
      episode.segments.emplace_back().SetData(activity, static_cast<float>(60 + seed % 600));
    }
    episode.Descript = "Discussion of a chapter";
  }
  for (int i = 0; i < questions; ++i) {
    DimensionTexts coded;
    for (const Dimension dimension : kLetteredDimensions) {
      const std::string_view letters = SchemeOf(dimension).letters;
      const auto code = static_cast<std::size_t>(seed + i) % (letters.size() + 1);
      if (code > 0) coded[dimension] = letters.substr(code - 1, 1);
    }
    coded[Dimension::respondName] = i % 3 == 0 ? "Zoë" : "Darnell";
    episodes[static_cast<std::size_t>(i) % episodes.size()].questions.emplace_back().SetValue(
        kTexts[static_cast<std::size_t>(seed + i) % std::size(kTexts)], coded,
        static_cast<std::int16_t>(1 + i % 6), static_cast<std::int16_t>(1 + i % 4));
  }
  return episodes;
}

void MakeData(const fs::path& data, int observations, int questions) {
  SurFile survey;
  survey.answers.ratings.fill(2);
  for (int i = 0; i < observations; ++i) {
    EpsHeader header;
    header.identity = {i % 7 == 0 ? "EF" : "AB", std::to_string(i % 40 + 1),
                       std::to_string(i / 40 % 30 + 1), std::to_string(i / 1200 + 1), "28"};
    header.ObservDate = "03-14-2026";
    header.StartTime = "09:05:12";
    survey.identity = header.identity;
    const fs::path classFolder =
        fs::path(header.identity.SchoolNum) / header.identity.ClassNum / header.identity.ClassId();
    const auto file = [&](const char* tree, const char* extension) {
      return (data / tree / classFolder) += extension;
    };
    Put(file("EPS", ".eps"), FormatEps(header, Episodes(i, questions)));
    Put(file("SUR", ".sur"), FormatSur(survey));
    Put(file("NTE", ".nte"), "A window was open.\r\n");
    std::string log = "********* Orvex 4.10 BAK file *********\r\n" + header.identity.ClassId() +
                      ".bak     AB     03-14-26\r\nLOG ON: 09:05:12     28 Students\r\n";
    while (log.size() < 20000) log += "Segment 1 of episode 1 started at 09:07:10\r\n";
    Put(file("BAK", ".bak"), log);
  }
}

/// Ticks as the window does until everything has been read, and says how that went.
void Fill(Study& study, const char* what, std::size_t first) {
  const Moment start = Now();
  double firstRows = 0;
  double longest = 0;
  while (study.IsReading()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(study.TickInterval()));
    const Moment tick = Now();
    study.Tick();
    const StudyTotals totals = study.Totals();
    longest = std::max(longest, Since(tick));
    if (firstRows == 0 && totals.observations > first) firstRows = Since(start);
  }
  std::cout << what << ": " << Since(start) << " ms, first rows after " << firstRows
            << " ms, longest tick " << longest << " ms\n";
}

template <typename Act>
void Measure(const char* what, Act act) {
  const Moment start = Now();
  act();
  std::cout << what << ": " << Since(start) << " ms\n";
}

void PrintMemory() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  std::cout << "  at most " << usage.ru_maxrss / 1024 << " MB\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "Usage: study_bench FOLDER [OBSERVATIONS] [QUESTIONS EACH]\n";
    return 2;
  }
  const fs::path data = argv[1];
  if (!fs::exists(data)) {
    MakeData(data, argc > 2 ? std::atoi(argv[2]) : 5000, argc > 3 ? std::atoi(argv[3]) : 10);
  }
  Study study(data);
  Fill(study, "filled", 0);
  std::cout << "  " << TextOf(study.Totals()) << "\n";
  PrintMemory();
  Measure("filter of two words", [&] { study.SetFilter({.text = "2026 ef"}); });
  Measure("no filter", [&] { study.SetFilter({}); });
  for (const StudyColumn column :
       {StudyColumn::offtask, StudyColumn::initials, StudyColumn::problems}) {
    Measure(SchemeOf(column).heading.data(), [&] { study.SortBy(column, true); });
  }
  study.LookForChanges();
  Measure("looked again", [&] { study.AwaitQuiet(); });
  StudyQuestions& all = study.Questions();
  Fill(study, "questions read", study.Count() + 1);
  std::cout << "  " << all.CountText() << "\n";
  PrintMemory();
  for (const char* filter : {"e", "zoë", "supports what darnell", "authenticity A source S",
                             "activity discussion", "nowhere", ""}) {
    Measure(filter, [&] { all.SetFilter(filter); });
  }
}
