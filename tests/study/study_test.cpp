#include "study/study.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "store/claim.h"
#include "study/found_files.h"
#include "study/study_folder.h"
#include "support/sample_manifest.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Names(const Study& study) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < study.Count(); ++i) names.push_back(study.Row(i).name);
  return names;
}

const StudyRow& RowOf(const Study& study, const std::string& name) {
  const auto at = study.Find(name);
  if (!at) throw std::out_of_range("not shown: " + name);
  return study.Row(*at);
}

std::string Cells(const StudyRow& row, const std::vector<StudyColumn>& columns) {
  std::string cells;
  for (const StudyColumn column : columns) cells += CellOf(row, column) + "|";
  return cells;
}

/// A data folder with an observation of every kind.
void FillDataFolder(const TestFolder& data) {
  const EpisodeList two = {Lesson(100, {Asked("Why?", "T", "Y", "Ann"), Asked("Who?", "T", "N")}),
                           Lesson(25)};
  const auto eps = [&](const char* path, const char* id, const char* initials) {
    PutFile(data / path, EpsBytes(Numbers(id, initials), two));
  };
  eps("EPS/5/2/5-2-9.eps", "5-2-9", "AB");
  PutFile(data / "SUR/5/2/5-2-9.sur", SurBytes("5-2-9", 0));
  PutFile(data / "BAK/5/2/5-2-9.bak", LogBytes("5-2-9"));
  PutFile(data / "NTE/5/2/5-2-9.nte", "A window was open.\r\n");

  eps("EPS/5/2/5-2-10.eps", "5-2-10", "cd");
  PutFile(data / "SUR/5/2/5-2-10.sur", SurBytes("5-2-10", 3));
  PutFile(data / "NTE/5/2/5-2-10.nte", "\r\n");

  std::string broken = EpsBytes(Numbers("6-1-1"), two);
  PutFile(data / "EPS/6/1/6-1-1.eps", broken.substr(0, broken.rfind(" 5 , 25 ")));
  PutFile(data / "BAK/6/1/6-1-1.bak", LogBytes("6-1-1", "\xC3\x89 F"));

  eps("EPS/6/1/6-1-2.eps", "6-1-3", "AB");
  PutFile(data / "SUR/6/1/6-1-2.sur", "not a survey");
  PutFile(data / "BAK/6/1/6-1-2.bak", LogBytes("6-1-2"));
  eps("EPS/6/1/6-1-2 2026-03-02 0945.eps", "6-1-2", "AB");

  PutFile(data / "SUR/7/1/7-1-1.sur", SurBytes("7-1-1", 25));
  PutFile(data / "BAK/7/1/7-1-2.bak", LogBytes("7-1-2"));
  PutFile(data / "BAK/7/1/7-1-3.bak", LogBytes("7-1-3"));
  PutFile(data / "BAK/7/1/7-1-3.recovery", KeptBytes("7-1-3"));
  eps("copies/5-2-9.eps", "05-2-9", "AB");
}

TEST(Study, TellsWhatThereIsOfEachObservationAndWhatIsWrong) {
  const TestFolder data;
  FillDataFolder(data);
  Study study(data.Path());
  study.AwaitQuiet();

  using enum StudyColumn;
  const std::vector<StudyColumn> columns = {
      school,   classNum, observation, initials,      date,   start, length,
      episodes, segments, questions,   notFullyCoded, survey, notes};
  struct Expected {
    const char* name;
    const char* cells;
    std::vector<std::string> problems;
  };
  const std::vector<Expected> expected = {
      {"5/2/5-2-9",
       "5|2|9|AB|03-02-2026|09:05:12|2:05|2|2|2|1|complete|yes|",
       {"copies/5-2-9 has the same numbers."}},
      {"5/2/5-2-10", "5|2|10|cd|03-02-2026||2:05|2|2|2|1|3 open||", {"The log is missing."}},
      {"6/1/6-1-1",
       "6|1|1|É F|03-02-2026|09:05:12||||||none||",
       {"6-1-1.eps, line 11: expected the activity number of a segment, not the end of the file.",
        "The survey is missing."}},
      {"6/1/6-1-2",
       "6|1|3|AB|03-02-2026|09:05:12|2:05|2|2|2|1|broken||",
       {"6-1-2.eps: the identity line says 6-1-3.",
        "6-1-2.sur, line 1: expected the school number, not the end of the file; this does not "
        "look "
        "like a file of Orvex."}},
      {"6/1/6-1-2 2026-03-02 0945",
       "6|1|2|AB|03-02-2026||2:05|2|2|2|1|none||",
       {"This is an earlier class of the numbers of 6-1-2, put aside.", "The survey is missing.",
        "The log is missing."}},
      {"7/1/7-1-1", "7|1|1|||||||||25 open||", {"The episode file is missing."}},
      {"7/1/7-1-2",
       "7|1|2|AB|03-02-2026|09:05:12||||||none||",
       {"There is a log but no episode file: the class was lost, or is running."}},
      {"7/1/7-1-3",
       "7|1|3|CD|03-04-2026|09:05:12||||||none||",
       {"Class 7-1-3 of 03-04-2026 was not ended. It was observed from 09:05:12 to 09:47:10: 1 "
        "episode, 1 question."}},
      {"copies/5-2-9",
       "05|2|9|AB|03-02-2026||2:05|2|2|2|1|none||",
       {"The survey is missing.", "5/2/5-2-9 has the same numbers."}},
  };
  EXPECT_EQ(study.Count(), expected.size());
  for (const Expected& one : expected) {
    const StudyRow& row = RowOf(study, one.name);
    EXPECT_EQ(Cells(row, columns), one.cells) << one.name;
    EXPECT_EQ(row.problems, one.problems) << one.name;
  }
  EXPECT_EQ(RowOf(study, "5/2/5-2-9").File(FileKind::fieldNotes), data / "NTE/5/2/5-2-9.nte");
}

TEST(Study, OpenedOnOneTreeFindsTheOtherFilesOfItsObservations) {
  const TestFolder data;
  FillDataFolder(data);
  Study study(data / "EPS/5");
  study.AwaitQuiet();
  EXPECT_EQ(Names(study), (std::vector<std::string>{"2/5-2-9", "2/5-2-10"}));
  EXPECT_EQ(study.Row(0).start, "09:05:12");
  EXPECT_TRUE(study.Row(0).hasNotes);
}

TEST(Study, SortsNumbersAsNumbersAndPutsWhatIsMissingLast) {
  const TestFolder data;
  const auto put = [&](const char* id, const char* initials, const char* date, int seconds) {
    PutFile(data / (std::string(id) + ".eps"),
            EpsBytes(Numbers(id, initials), {Lesson(seconds)}, date));
  };
  put("10-1-1", "b", "01-05-2026", 100);
  put("9-1-1", "", "02-04-2025", 90);
  put("9-1-2", "C", "12-31-2024", 90);
  put("11-1-1", "a", "03-01-2026", 1000);
  PutFile(data / "8-1-1.sur", SurBytes("8-1-1", 2));

  struct Case {
    StudyColumn column;
    bool descending;
    std::vector<std::string> order;
  };
  using enum StudyColumn;
  const std::vector<Case> cases = {
      {school, false, {"8-1-1", "9-1-1", "9-1-2", "10-1-1", "11-1-1"}},
      {school, true, {"11-1-1", "10-1-1", "9-1-1", "9-1-2", "8-1-1"}},
      {initials, false, {"11-1-1", "10-1-1", "9-1-2", "8-1-1", "9-1-1"}},
      {initials, true, {"9-1-2", "10-1-1", "11-1-1", "8-1-1", "9-1-1"}},
      {date, false, {"9-1-2", "9-1-1", "10-1-1", "11-1-1", "8-1-1"}},
      {length, true, {"11-1-1", "10-1-1", "9-1-1", "9-1-2", "8-1-1"}},
      {survey, false, {"8-1-1", "9-1-1", "9-1-2", "10-1-1", "11-1-1"}},
  };
  Study study(data.Path());
  for (const bool isRead : {false, true}) {
    for (const Case& one : cases) {
      // Rows that come in are put in their places; rows that are there are sorted anew.
      if (!isRead) study.Reload();
      study.SortBy(one.column, one.descending);
      study.AwaitQuiet();
      EXPECT_EQ(Names(study), one.order) << SchemeOf(one.column).id << one.descending << isRead;
    }
  }
}

TEST(Study, ShowsWhatPassesTheFilter) {
  const TestFolder data;
  FillDataFolder(data);
  Study study(data.Path());
  struct Case {
    StudyFilter filter;
    std::set<std::string> shown;
  };
  const std::vector<Case> cases = {
      {{.text = "CD"}, {"5/2/5-2-10", "7/1/7-1-3"}},
      {{.text = "é"}, {"6/1/6-1-1"}},
      {{.text = "open 5-2"}, {"5/2/5-2-10"}},
      {{.text = "\"a log but\""}, {"7/1/7-1-2"}},
      {{.noSurvey = true, .problems = true, .mine = true, .initials = " ab "},
       {"6/1/6-1-2", "6/1/6-1-2 2026-03-02 0945", "7/1/7-1-2", "copies/5-2-9"}},
      {{.text = "5-2-9", .notFullyCoded = true}, {"5/2/5-2-9", "copies/5-2-9"}},
  };
  for (const Case& one : cases) {
    study.SetFilter(one.filter);
    study.AwaitQuiet();
    const auto names = Names(study);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()), one.shown) << one.filter.text;
  }
  EXPECT_EQ(TextOf(study.Totals()),
            "2 of 9 observations: 0 h 4 min, 4 episodes, 4 questions (2 not fully coded), 0 "
            "dialogic spells, 1 without a survey, 2 with problems");
  EXPECT_EQ(study.TextOf({0, 1}, {StudyColumn::school, StudyColumn::survey}),
            "School\tSurvey\n5\tcomplete\n05\tnone\n");
}

TEST(Study, FollowsWhatHappensToItsFiles) {
  const TestFolder data;
  FillDataFolder(data);
  Study study(data.Path());
  study.SetFilter({.text = "/5-2-"});
  study.Questions();
  study.AwaitQuiet();
  const auto lookAgain = [&] {
    study.LookForChanges();
    study.AwaitQuiet();
  };

  // Replaced, added and removed; the observation of the same numbers is told of no longer.
  PutFile(data / "EPS/5/2/5-2-9.eps", EpsBytes(Numbers("5-2-9"), {Lesson(60)}));
  PutFile(data / "EPS/5/2/5-2-11.eps", EpsBytes(Numbers("5-2-11"), {Lesson(60)}));
  fs::remove(data / "copies/5-2-9.eps");
  fs::remove(data / "EPS/5/2/5-2-10.eps");
  lookAgain();
  EXPECT_EQ(Names(study), (std::vector<std::string>{"5/2/5-2-9", "5/2/5-2-10", "5/2/5-2-11"}));
  EXPECT_EQ(study.Row(0).summary->seconds, 60);
  EXPECT_TRUE(study.Row(0).problems.empty());
  EXPECT_EQ(study.Row(1).problems, std::vector<std::string>{"The episode file is missing."});

  // Damaged, and no longer to be read.
  PutFile(data / "EPS/5/2/5-2-9.eps", "\xFF\x01");
  fs::remove(data / "EPS/5/2/5-2-11.eps");
  fs::create_directory(data / "EPS/5/2/5-2-11.eps");
  lookAgain();
  EXPECT_EQ(Names(study), (std::vector<std::string>{"5/2/5-2-9", "5/2/5-2-10"}));
  EXPECT_FALSE(study.Row(0).summary);
  EXPECT_EQ(study.Row(0).start, "09:05:12");

  // Moved as it is within its name: opened where it is now.
  fs::create_directories(data / "5/2");
  fs::rename(data / "NTE/5/2/5-2-9.nte", data / "5/2/5-2-9.nte");
  lookAgain();
  EXPECT_EQ(study.Row(0).File(FileKind::fieldNotes), data / "5/2/5-2-9.nte");

  // A folder that cannot be reached for a while takes nothing with it.
  fs::rename(data / "EPS", data / "SUR/EPS");
  fs::rename(data.Path(), data.Path().string() + "-away");
  lookAgain();
  EXPECT_NE(study.Trouble(), "");
  EXPECT_EQ(study.Count(), 2U);
  fs::rename(data.Path().string() + "-away", data.Path());
  fs::rename(data / "SUR/EPS", data / "EPS");
  lookAgain();
  EXPECT_EQ(study.Trouble(), "");
  EXPECT_EQ(study.Count(), 2U);

  // Once stopped, it follows what it has read only.
  study.Stop();
  PutFile(data / "EPS/5/2/5-2-9.eps", EpsBytes(Numbers("5-2-9"), {Lesson(60)}));
  PutFile(data / "EPS/5/2/5-2-12.eps", EpsBytes(Numbers("5-2-12"), {Lesson(60)}));
  lookAgain();
  EXPECT_EQ(study.Count(), 2U);
  EXPECT_TRUE(study.Row(0).summary);
  fs::remove_all(data / "SUR");
  fs::remove_all(data / "NTE");
  study.Reload();
  study.AwaitQuiet();
  EXPECT_EQ(Names(study), (std::vector<std::string>{"5/2/5-2-9", "5/2/5-2-12"}));
}

TEST(Study, TellsOfARealDuplicateBeforeWhatWasPutAside) {
  const TestFolder data;
  for (const char* path : {"a/5-2-9 2026-03-02 0945.eps", "b/5-2-9.eps", "c/5-2-9.eps"}) {
    PutFile(data / path, EpsBytes(Numbers("5-2-9"), {Lesson(60)}));
  }
  Study study(data.Path());
  study.AwaitQuiet();
  const auto lastProblem = [&](const char* name) { return RowOf(study, name).problems.back(); };
  EXPECT_EQ(lastProblem("b/5-2-9"), "c/5-2-9 has the same numbers.");
  EXPECT_EQ(lastProblem("c/5-2-9"), "b/5-2-9 has the same numbers.");
  fs::remove(data / "c/5-2-9.eps");
  study.LookForChanges();
  study.AwaitQuiet();
  EXPECT_EQ(lastProblem("b/5-2-9"),
            "An earlier class of the same numbers is put aside as a/5-2-9 2026-03-02 0945.");
  EXPECT_TRUE(TextOf(study.Totals()).ends_with("2 with problems, 1 put aside"));
}

TEST(Study, NoticesWhenAClassBeginsAndEndsToRun) {
  const TestFolder data;
  const fs::path kept = data / "BAK/7/1/7-1-3.recovery";
  PutFile(kept, KeptBytes("7-1-3"));
  auto claim = std::make_optional<Claim>(kept);
  Study study(data.Path());
  study.AwaitQuiet();
  EXPECT_EQ(study.Row(0).problems, std::vector<std::string>{"The class is running."});
  claim.reset();
  study.LookForChanges();
  study.AwaitQuiet();
  ASSERT_EQ(study.Row(0).problems.size(), 1U);
  EXPECT_NE(study.Row(0).problems[0].find("was not ended"), std::string::npos);
}

TEST(Study, NamesEveryObservationOnce) {
  const TestFolder data;
  PutFile(data / "EPS/x/5-1-1.eps", EpsBytes(Numbers("5-1-1"), {Lesson(60)}));
  PutFile(data / "x/5-1-1.eps", EpsBytes(Numbers("5-1-1"), {Lesson(60)}));
  PutFile(data / "x/5-1-1.eps.sur", SurBytes("5-1-1", 0));
  Study study(data.Path());
  study.AwaitQuiet();
  EXPECT_EQ(study.Count(), 3U);
  study.LookForChanges();
  study.AwaitQuiet();
  EXPECT_EQ(study.Found(), 0U) << "nothing has changed";
}

TEST(Study, AddsUpWhatIsSoundBesideWhatIsAbsurd) {
  const TestFolder data;
  const std::pair<const char*, float> classes[] = {
      {"1-1-1", 3e38F}, {"1-1-2", -1e30F}, {"1-1-3", 7200.0F}};
  for (const auto& [id, seconds] : classes) {
    Episode episode;
    episode.segments.emplace_back().SetData(5, seconds);
    PutFile(data / (std::string(id) + ".eps"),
            EpsBytes(Numbers(id), {episode}, id[4] == '1' ? "1e99999999" : "9999999999"));
  }
  Study study(data.Path());
  study.AwaitQuiet();
  study.SortBy(StudyColumn::date, true);
  EXPECT_TRUE(TextOf(study.Totals()).starts_with("3 observations: 2 h 0 min, 3 episodes"))
      << TextOf(study.Totals());
}

TEST(Study, ReadsUntilEverythingIsTakenOver) {
  const TestFolder data;
  for (int i = 0; i < 900; ++i) {
    PutFile(data / ("1-1-" + std::to_string(i) + ".sur"), SurBytes("1-1-1", 0));
  }
  Study study(data.Path());
  while (study.IsReading()) study.Tick();
  EXPECT_EQ(study.Count(), 900U);
}

TEST(Study, EndsWithTheRightRowsHoweverFilesChangeWhileItReads) {
  const TestFolder data;
  const auto path = [&](unsigned i) {
    return data / ("EPS/1/1/1-1-" + std::to_string(i % 40) + ".eps");
  };
  std::atomic<bool> changes = true;
  std::thread other([&] {
    std::mt19937 chance(7);
    // Every content has another length: two of one length in one moment look the same.
    for (unsigned step = 0; step < 1500; ++step) {
      const unsigned i = static_cast<unsigned>(chance());
      const std::string bytes =
          EpsBytes(Numbers("1-1-" + std::to_string(i % 40)),
                   {Lesson(60, {Asked(std::string(step + 1, 'x'), "T", "Y")})});
      switch (chance() % 4) {
        case 0:
          fs::remove(path(i));
          break;
        case 1:
          PutFile(path(i), bytes.substr(0, 20 + step % 100));
          break;
        default:
          PutFile(path(i), bytes);
      }
    }
    changes = false;
  });
  Study study(data.Path());
  study.Questions();
  while (changes) {
    study.LookForChanges();
    study.Tick();
  }
  other.join();
  for (int look = 0; look < 2; ++look) {
    study.AwaitQuiet();
    study.LookForChanges();
  }
  study.AwaitQuiet();

  Study fresh(data.Path());
  fresh.Questions();
  fresh.AwaitQuiet();
  const auto all = [](const Study& shown) {
    std::vector<std::size_t> positions(shown.Count());
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    std::vector<StudyColumn> columns;
    for (const StudyColumnScheme& scheme : kStudyColumns) columns.push_back(scheme.column);
    return shown.TextOf(positions, columns);
  };
  EXPECT_EQ(all(study), all(fresh));
  EXPECT_EQ(study.Questions().CountText(), fresh.Questions().CountText());
}

TEST(Study, CanBeLeftAtAnyMomentWhileFilesChange) {
  const TestFolder data;
  for (int i = 0; i < 300; ++i) {
    const std::string id = "1-1-" + std::to_string(i);
    PutFile(data / (id + ".eps"), EpsBytes(Numbers(id), {Lesson(60, {Asked("Why?", "T", "Y")})}));
  }
  for (int left = 0; left < 20; ++left) {
    Study study(data.Path());
    if (left % 3 == 0) study.Questions();
    for (int i = 0; i < left; ++i) {
      fs::remove(data / ("1-1-" + std::to_string(10 * left + i) + ".eps"));
      study.LookForChanges();
      study.Tick();
    }
    if (left % 4 == 0) study.Stop();
    if (left % 5 == 0) study.AwaitQuiet();
  }
  Study study(data.Path());
  study.AwaitQuiet();
  EXPECT_EQ(study.Count(), FindFiles(data.Path()).files.size());
}

/// How often `part` occurs in the file.
std::size_t Occurrences(const fs::path& file, std::string_view part) {
  const std::string text = FileBytes(file);
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(Study, AddsTheSamplesUpToWhatTheirTablesSay) {
  for (const char* folder : {"class", "odd"}) {
    const fs::path samples = SamplesFolder() / folder;
    Study study(samples);
    study.AwaitQuiet();
    std::size_t open = 0;
    for (std::size_t i = 0; i < study.Count(); ++i) {
      const StudyRow& row = study.Row(i);
      if (!row.Has(FileKind::episodes)) continue;
      EXPECT_EQ(row.problems, std::vector<std::string>{}) << row.name;
      open += static_cast<std::size_t>(row.openStatements.value_or(0));
    }
    EXPECT_EQ(open, Occurrences(samples / "expected/SURDATA.TXT", ", -1 "));
    EXPECT_EQ(study.Totals().episodes, Occurrences(samples / "expected/EPSDATA.TXT", "\n"));
  }
}

}  // namespace
}  // namespace orvex::test
