// The tables in one SQLite database, asked by the program for such databases.

#include "tables/sqlite_tables.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <sstream>

#include "commands/table_command.h"
#include "store/file_error.h"
#include "support/faulty_storage.h"
#include "tables/awkward_study.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

FileRows Read(const fs::path& base) {
  FileRows rows;
  SqliteTableKind().append(fs::path(base).concat(".eps"), base.filename().string(), rows);
  return rows;
}

/// The answer of the database in `folder` to `sql`, rows and cells divided by line ends and "|".
std::string AnswerOf(const test::TestFolder& folder, const std::string& sql) {
  test::PutFile(folder / "question.sql", sql);
  test::Runs(folder.Path(), "sqlite3 -nullvalue NULL study.sqlite <question.sql");
  return test::FileBytes(folder / "out");
}

TEST(SqliteTables, HoldWhatTheFilesSay) {
  const test::TestFolder folder;
  const int questions = test::PutAwkwardStudy(folder.Path());
  Storage storage;
  SqliteTables tables(storage, folder / "study.sqlite");
  FileRows surveyAlone = Read(folder / "5-12-3");
  surveyAlone.observation.episodes.reset();
  std::size_t rows = tables.Add(Read(folder / "5-12-4"));
  for (int i = 0; i < 2; ++i) rows += tables.Add(Read(folder / "5-12-3"));
  rows += tables.Add(surveyAlone);
  EXPECT_FALSE(fs::exists(folder / "study.sqlite"));
  tables.Commit();
  EXPECT_EQ(rows, static_cast<std::size_t>(3 + 3 + 3 + 4 + 2 * questions));

  const std::pair<const char*, std::string> cases[] = {
      {"PRAGMA integrity_check; PRAGMA foreign_key_check", "ok\n"},
      {"SELECT id, observation, class_start, questions_per_minute, estimates, minutes_15 FROM "
       "observations",
       "1|4|NULL|NULL|NULL|0.0\n2|3|09:07:30|5.0|1|0.81666666\n3|3|09:07:30|5.0|1|0.81666666\n"},
      {"SELECT observation_id, evaluation_other_text, s03_flexibility, s04_talk_time FROM survey",
       "2|NA|9|NULL\n3|NA|9|NULL\nNULL|NA|9|NULL\n"},
      {"SELECT e.observation_id, group_concat(q.id), sum(q.question), typeof(q.activity), "
       "typeof(q.normal), q.segment FROM questions q JOIN episodes e ON e.id = q.episode_id "
       "GROUP BY e.id",
       "2|1,2,3,4,5,6,7,8,9,10|55|integer|integer|2\n"
       "3|11,12,13,14,15,16,17,18,19,20|55|integer|integer|2\n"},
      {"SELECT text FROM questions WHERE episode_id = 2 AND question < 8",
       "NA\n leading, \"quoted\"\n=1+1\nGrüße, Öğretmen?\n\"\ntrailing \na b\n"},
      {"SELECT typeof(offtask), offtask, length(description) FROM episodes WHERE id = 2",
       "real|1.0|405\n"},
      {"SELECT episode_id, seconds, activity, coalesce(writing, 'none') FROM segments LIMIT 2",
       "2|71|4|none\n2|49|15|none\n"},
      {"SELECT \"table\", label, type, value, value_label FROM codebook WHERE variable = 'uptake'",
       "questions|Uptake|code|N|None\nquestions|Uptake|code|T|Test\nquestions|Uptake|code|A|"
       "Authentic\n"},
      {"SELECT value, value_label FROM codebook WHERE variable = 's03_flexibility'",
       "9|Can't tell\n0|Never\n1|Some flexibility\n2|A lot of flexibility\n"},
  };
  for (const auto& [sql, answer] : cases) EXPECT_EQ(AnswerOf(folder, sql), answer) << sql;
}

TEST(SqliteTables, KeepWhatCanBeReadOfAnObservation) {
  const test::TestFolder folder;
  test::PutAwkwardStudy(folder.Path());
  const std::string eps = test::FileBytes(folder / "5-12-3.eps");
  const std::string sur = test::FileBytes(folder / "5-12-3.sur");
  const auto put = [&](const std::string& number, const std::string& episodes,
                       const std::string& survey) {
    if (!episodes.empty())
      test::PutFile(folder / ("DATA/EPS/5/12/5-12-" + number + ".eps"), episodes);
    if (!survey.empty()) test::PutFile(folder / ("DATA/SUR/5/12/5-12-" + number + ".sur"), survey);
  };
  put("1", eps, sur);
  put("2", eps, "broken");
  put("3", "broken", sur);
  put("4", "", sur);
  put("5", eps, "");
  // The surveys of a tree of episode files are in the tree beside it, and the other way round.
  const std::string whole = "5/12/5-12-1|1|22\n";
  const std::string broken = "5/12/5-12-2|1|\n";
  const std::string without = "5/12/5-12-5|0|\n";
  const std::string told[] = {"/5-12-1.eps: warning: the survey: the identity line says 5-12-3\n",
                              "/5-12-2.sur:1: ", "/5-12-3.eps:1: ",
                              "/5-12-4.sur: warning: the identity line says 5-12-3\n"};
  const struct {
    const char* source;
    std::string observations;
    std::string surveys;
    std::size_t told;
  } cases[] = {
      {"DATA", whole + broken + without, "5/12/5-12-1\n5/12/5-12-3\n5/12/5-12-4\n", 4},
      {"DATA/EPS", whole + broken + without, "5/12/5-12-1\n5/12/5-12-3\n", 3},
      {"DATA/SUR", whole + broken, "5/12/5-12-1\n5/12/5-12-3\n5/12/5-12-4\n", 4},
  };
  for (const auto& [source, observations, surveys, count] : cases) {
    for (const bool sqlite : {false, true}) {
      std::ostringstream out;
      std::ostringstream err;
      Storage storage;
      EXPECT_EQ(RunTable({.tables = {kTidyTables.begin(), kTidyTables.end()},
                          .sources = {folder / source},
                          .output = folder.Path(),
                          .sqlite = sqlite},
                         storage, Console{.out = out, .err = err, .interrupted = {}}),
                kFailed);
      for (std::size_t i = 0; i < count; ++i) {
        EXPECT_NE(err.str().find(told[i]), std::string::npos) << source << "\n" << err.str();
      }
    }
    for (const std::string in : {"", "_file"}) {
      const std::string imports = in.empty() ? ""
                                             : ".import --csv observations.csv observations_file\n"
                                               ".import --csv survey.csv survey_file\n";
      EXPECT_EQ(AnswerOf(folder, imports +
                                     "SELECT file, survey, coalesce(statements_open, '') FROM "
                                     "observations" +
                                     in + " ORDER BY file"),
                observations)
          << source << in;
      EXPECT_EQ(AnswerOf(folder, "SELECT file FROM survey" + in + " ORDER BY file"), surveys)
          << source << in;
    }
  }
  EXPECT_EQ(AnswerOf(folder,
                     "SELECT s.file, o.file FROM survey s LEFT JOIN observations o ON o.id = "
                     "s.observation_id ORDER BY s.file"),
            "5/12/5-12-1|5/12/5-12-1\n5/12/5-12-3|NULL\n5/12/5-12-4|NULL\n");
}

TEST(SqliteTables, CountAClassWhoseSurveyIsBrokenAsTheTablesInFilesDo) {
  const test::TestFolder folder;
  test::PutAwkwardStudy(folder.Path());
  test::PutFile(folder / "5-12-3.sur", "broken");
  for (const bool sqlite : {false, true}) {
    std::ostringstream out;
    std::ostringstream err;
    Storage storage;
    EXPECT_EQ(
        RunTable(
            {.tables = {TidyTable::observations}, .sources = {folder.Path()}, .sqlite = sqlite},
            storage, Console{.out = out, .err = err, .interrupted = {}}),
        kFailed);
    EXPECT_NE(out.str().find(" from 2 files\n"), std::string::npos) << out.str();
    EXPECT_NE(err.str().find("/5-12-3.sur:1: "), std::string::npos) << err.str();
  }
}

TEST(SqliteTables, ReplaceAnEarlierDatabaseAsAWholeOrNotAtAll) {
  const test::TestFolder folder;
  test::PutAwkwardStudy(folder.Path());
  const FileRows files = Read(folder / "5-12-3");
  const fs::path path = folder / "study.sqlite";
  test::PutFile(path, "earlier");
  const auto make = [&](Storage& storage, int classes) {
    SqliteTables tables(storage, path);
    for (int i = 0; i < classes; ++i) tables.Add(files);
    tables.Commit();
  };
  const auto expectOnlyTheEarlierOne = [&](const std::string& what) {
    EXPECT_TRUE(test::FileBytes(path) == "earlier") << what;
    int temporaries = 0;
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
      temporaries += entry.path().extension() == ".tmp" ? 1 : 0;
    }
    EXPECT_EQ(temporaries, 0) << what;
  };
  const auto expectFails = [&](Storage& storage, int cause, const std::string& what) {
    try {
      make(storage, 100);
      ADD_FAILURE() << what;
    } catch (const FileError& error) {
      EXPECT_EQ(error.Path(), path) << what;
      EXPECT_EQ(error.Cause(), std::generic_category().message(cause)) << what;
    }
    expectOnlyTheEarlierOne(what);
  };
  for (const char* call : {"open", "sync", "close", "rename"}) {
    test::FaultyStorage storage;
    storage.Fail(1, ENOSPC, call);
    expectFails(storage, ENOSPC, call);
    EXPECT_EQ(storage.Injected(), 1) << call;
  }

  // The library itself meets the end of the disk, here the largest size of a file.
  Storage storage;
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, SIG_IGN);
  for (const rlim_t size : {10'000U, 200'000U}) {
    const rlimit small = {.rlim_cur = size, .rlim_max = before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    expectFails(storage, EFBIG, std::to_string(size));
  }
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, SIG_DFL);

  { SqliteTables(storage, path).Add(files); }
  expectOnlyTheEarlierOne("interrupted");
  make(storage, 1);
  EXPECT_EQ(AnswerOf(folder, "SELECT count(*) FROM observations"), "1\n");
}

}  // namespace
}  // namespace orvex
