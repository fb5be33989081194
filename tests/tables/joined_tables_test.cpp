// The tables of a study joined with each other: what one of them adds up is what another one lists.

#include <gtest/gtest.h>

#include <sstream>

#include "commands/table_command.h"
#include "model/activities.h"
#include "model/clock.h"
#include "store/storage.h"
#include "support/sample_manifest.h"
#include "tables/awkward_study.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

class JoinedTables : public testing::Test {
 protected:
  void SetUp() override {
    std::ostringstream out;
    std::ostringstream err;
    const Console console{.out = out, .err = err, .interrupted = {}};
    Storage storage;
    TableCommand command = {.tables = {kTidyTables.begin(), kTidyTables.end()},
                            .sources = {samples_ / "class", samples_ / "odd"},
                            .output = folder_.Path()};
    ASSERT_EQ(RunTable(command, storage, console), kDone) << err.str();
    command.sqlite = true;
    ASSERT_EQ(RunTable(command, storage, console), kDone) << err.str();
    ASSERT_EQ(RunExport({.sources = command.sources, .output = folder_.Path()}, storage, console),
              kDone)
        << err.str();
  }

  /// The database's answer to `sql`; `before` are commands for the program itself.
  std::string Answer(const std::string& sql, const std::string& before = "") {
    test::PutFile(folder_ / "sql", before + "\n" + sql + ";\n");
    EXPECT_TRUE(test::Runs(folder_.Path(), "sqlite3 study.sqlite <sql"))
        << test::FileBytes(folder_ / "out");
    return test::FileBytes(folder_ / "out");
  }

  const std::filesystem::path samples_ = test::SamplesFolder();
  const test::TestFolder folder_;
};

TEST_F(JoinedTables, HoldTheSameNumbersAsTheDatabase) {
  for (const TidyTable table : kTidyTables) {
    const std::string name(NameOf(table));
    std::string sums = "count(*)";
    for (const TidyColumn& column : ColumnsOf(table)) {
      if (column.IsNumeric()) sums += ", total(\"" + column.name + "\")";
      sums += ", count(nullif(\"" + column.name + "\", ''))";
    }
    const std::string inFile =
        Answer("SELECT " + sums + " FROM file", ".import --csv " + name + ".csv file");
    EXPECT_EQ(Answer("DROP TABLE file; SELECT " + sums + " FROM " + name), inFile) << name;
    EXPECT_FALSE(inFile.starts_with("0|")) << name;
  }
}

TEST_F(JoinedTables, AgreeWithEachOther) {
  std::string columns;
  for (int i = 1; i <= 38; ++i) columns += (i > 1 ? ", c" : "c") + std::to_string(i);
  Answer("", "CREATE TABLE epsdata (" + columns + ");\n.import --csv EPSDATA.TXT epsdata");

  const auto ofQuestions = [](const std::string& condition) {
    return "(SELECT count(*) FROM questions q WHERE q.episode_id = e.id AND " + condition + ")";
  };
  const auto ofEpisodes = [](const std::string& sum) {
    return "(SELECT total(" + sum + ") FROM episodes e WHERE e.observation_id = o.id)";
  };
  const auto ofClass = [](const std::string& condition) {
    return "(SELECT count(*) FROM questions q JOIN episodes e ON e.id = q.episode_id WHERE "
           "e.observation_id = o.id AND " +
           condition + ")";
  };
  std::vector<std::pair<std::string, std::string>> equals = {
      {"e.questions", ofQuestions("1")},
      {"e.teacher_questions", ofQuestions("source = 'T'")},
      {"e.authentic_student", ofQuestions("source = 'S' AND authenticity = 'A'")},
      {"e.unanswered", ofQuestions("response = 'N'")},
      {"e.test_uptake", ofQuestions("uptake = 'T'")},
      {"e.higher_order", ofQuestions("cognitive_level = 'H'")},
      {"e.default_questions",
       ofQuestions("source = 'T' AND response = 'Y' AND authenticity = 'N' AND uptake = 'N' AND "
                   "cognitive_level = 'R'")},
      {"e.spells",
       "(SELECT count(DISTINCT dialogic_spell) FROM questions q WHERE q.episode_id = "
       "e.id)"},
      {"e.segments", "(SELECT count(*) FROM segments s WHERE s.episode_id = e.id)"},
      {"e.seconds", "(SELECT total(seconds) FROM segments s WHERE s.episode_id = e.id)"},
      {"o.episodes", ofEpisodes("1")},
      {"o.segments", ofEpisodes("e.segments")},
      {"o.questions", ofEpisodes("e.questions")},
      {"o.spells", ofEpisodes("e.spells")},
      {"o.seconds", ofEpisodes("e.seconds")},
      {"o.teacher_questions", ofEpisodes("e.teacher_questions")},
      {"o.student_questions", ofEpisodes("e.student_questions")},
      {"o.authentic_teacher", ofEpisodes("e.authentic_teacher")},
      {"o.authentic_student", ofEpisodes("e.authentic_student")},
      {"o.normal_count", ofClass("normal = 1")},
      {"o.not_fully_coded", ofClass("fully_coded = 0")},
      {"o.teacher_unanswered", ofClass("source = 'T' AND response = 'N'")},
      {"o.teacher_higher_order", ofClass("source = 'T' AND cognitive_level = 'H'")},
      {"o.answered_elaborated", ofClass("response = 'Y' AND elaborated = 'E'")},
      {"o.answered_authentic_uptake", ofClass("response = 'Y' AND uptake = 'A'")},
      {"o.student_opening_up",
       ofClass("source = 'S' AND response = 'Y' AND teacher_response = 'O'")},
      {"o.survey", "(SELECT count(*) FROM survey s WHERE s.observation_id = o.id)"},
  };
  // Singles, which seven digits or so tell apart.
  std::vector<std::pair<std::string, std::string>> closes = {
      {"o.questions_per_minute", "60.0 * o.questions / o.seconds"},
      {"o.offtask_weighted",
       "(SELECT sum(e.seconds * e.offtask) / sum(e.seconds) FROM episodes e WHERE "
       "e.observation_id = o.id AND e.questions > 0)"},
  };
  const std::tuple<const char*, const char*, const char*> shares[] = {
      {"student", "source = 'S'", "1"},
      {"authentic_teacher", "authenticity = 'A'", "source = 'T'"},
      {"authentic_student", "authenticity = 'A'", "source = 'S'"},
      {"teacher_higher_order", "cognitive_level = 'H'", "source = 'T'"},
      {"teacher_unanswered", "response = 'N'", "source = 'T'"},
      {"uptake", "uptake IN ('T', 'A')", "response = 'Y'"},
      {"elaborated", "elaborated = 'E'", "response = 'Y'"},
  };
  for (const auto& [name, part, whole] : shares) {
    const std::string ofWhole = ofClass(whole);
    closes.emplace_back(
        std::string("o.share_") + name,
        "1.0 * " + ofClass(std::string(whole) + " AND " + part) + " / nullif(" + ofWhole + ", 0)");
  }
  const std::pair<const char*, const char*> groups[] = {
      {"classroom_management", "1, 2, 3"},
      {"direct_instruction", "4, 5, 6, 7, 8, 9, 10, 11, 12"},
      {"seatwork_and_pairwork", "14, 15, 16, 17"},
      {"tests_and_quizzes", "13"},
  };
  for (const auto& [name, activities] : groups) {
    closes.emplace_back(std::string("60 * o.minutes_") + name,
                        "(SELECT total(s.seconds) FROM segments s JOIN episodes e ON e.id = "
                        "s.episode_id WHERE e.observation_id = o.id AND activity IN (" +
                            std::string(activities) + "))");
  }
  for (const Activity& activity : kActivities) {
    const std::string seconds = "seconds_" + TwoDigits(activity.number);
    equals.emplace_back("e." + seconds,
                        "(SELECT total(seconds) FROM segments s WHERE s.episode_id "
                        "= e.id AND activity = " +
                            std::to_string(activity.number) + ")");
    closes.emplace_back("60 * o.minutes_" + TwoDigits(activity.number), ofEpisodes("e." + seconds));
    constexpr int kLastWithOneCell = 13;
    if (activity.number > kLastWithOneCell) continue;
    equals.emplace_back("e." + seconds, "x.c" + std::to_string(activity.number + 4));
  }
  int column = 30;
  for (const char* count :
       {"authentic_teacher", "authentic_student", "teacher_questions", "student_questions",
        "unanswered", "test_uptake", "default_questions"}) {
    equals.emplace_back(std::string("e.") + count, "x.c" + std::to_string(column++));
  }
  std::string sql;
  const auto tellWhere = [&](const std::string& condition, const std::string& one,
                             const std::string& other) {
    sql += "SELECT '" + one + "', o.file, " + one + ", " + other +
           " FROM observations o JOIN episodes e ON e.observation_id = o.id JOIN epsdata x ON "
           "x.rowid = e.id WHERE " +
           condition + ";\n";
  };
  for (const auto& [one, other] : equals) {
    tellWhere(one + " IS NOT CAST(" + other + " AS REAL)", one, other);
  }
  for (const auto& [one, other] : closes) {
    tellWhere("(" + one + " IS NULL) <> (" + other + " IS NULL) OR abs(" + one + " - " + other +
                  ") > 1e-5 * max(1, " + other + ")",
              one, other);
  }
  EXPECT_EQ(Answer(sql), "");
  EXPECT_EQ(Answer("SELECT count(*) - (SELECT count(*) FROM epsdata) FROM episodes"), "0\n");
  EXPECT_EQ(Answer("PRAGMA foreign_key_check; PRAGMA integrity_check"), "ok\n");
}

}  // namespace
}  // namespace orvex
