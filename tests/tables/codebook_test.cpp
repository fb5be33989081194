// The codebooks, and the scripts among them run by the programs that they are for.

#include "tables/codebook.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "model/survey_scheme.h"
#include "store/file_error.h"
#include "tables/awkward_study.h"
#include "tables/csv_widths.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

/// Makes all tables of the awkward study in `folder`, each with its codebook. Returns the number of
/// questions.
int MakeTables(const test::TestFolder& folder, CodebookKind codebook) {
  const int questions = test::PutAwkwardStudy(folder.Path());
  for (const TidyTable table : kTidyTables) {
    const TableKind kind = TidyTableKind(table);
    FileRows rows = {.text = kind.header, .observation = {}, .notes = {}};
    for (const std::string name : {"5-12-3", "5-12-4"}) {
      const std::filesystem::path file = folder / (name + std::string(ExtensionOf(kind.files)));
      if (std::filesystem::exists(file)) kind.append(file, name, rows);
    }
    test::PutFile(folder / kind.fileName, rows.text);
    test::PutFile(folder / CodebookFileName(table, codebook),
                  Codebook(table, codebook, folder / kind.fileName));
  }
  return questions;
}

TEST(Codebook, HasNamesAndLabelsThatProgramsCanTellApart) {
  for (const TidyTable table : kTidyTables) {
    std::set<std::string> names;
    for (const TidyColumn& column : ColumnsOf(table)) {
      EXPECT_TRUE(names.insert(column.name).second) << column.name;
      EXPECT_LE(column.name.size(), 32U) << column.name;
      EXPECT_FALSE(column.label.empty()) << column.name;
      EXPECT_LE(column.label.size(), 256U) << column.name;
      EXPECT_EQ(column.type == ColumnType::code, !column.values.empty()) << column.name;
      std::set<std::string_view> values;
      std::set<std::string_view> labels;
      for (const ValueLabel& value : column.values) {
        EXPECT_TRUE(values.insert(value.value).second) << column.name << value.value;
        EXPECT_TRUE(labels.insert(value.label).second) << column.name << value.label;
        EXPECT_LE(value.label.size(), 120U) << column.name << value.label;
      }
    }
  }
  const std::tuple<std::size_t, int, int, const char*> meanings[] = {
      {0, 0, 0, "Never"},
      {0, 1, 1, "Less than half the class period"},
      {2, 0, 9, "Can't tell"},
      {2, 3, 2, "A lot of flexibility"},
      {11, 0, 0, "No questions or comments, or almost none, showed analysis or evaluation"},
      {15, 0, 9, "No such questions or comments"},
      {15, 1, 0, "Never or almost never"},
      {22, 4, 3, "Always or almost always"},
      {23, 0, 0, "Never/Can't tell"},
      {24, 3, 3, "Much opportunity"},
  };
  for (const auto& [statement, button, value, meaning] : meanings) {
    EXPECT_EQ(SurveyStatements()[statement].Value(button), value) << statement;
    EXPECT_EQ(SurveyStatements()[statement].Meaning(button), meaning);
  }
}

TEST(Codebook, KnowsTheWidestTextOfEveryColumn) {
  const test::TestFolder folder;
  test::PutFile(folder / "t.csv", "longname,b,c\r\na,\"x,\"\"y\"\"\",\r\nab,\"\"\"\",\xC3\xBC\r\n");
  EXPECT_EQ(CsvWidths(folder / "t.csv", 3), (std::vector<std::size_t>{2, 5, 2}));
  EXPECT_THROW(CsvWidths(folder / "none.csv", 3), FileError);
}

TEST(Codebook, IsAScriptThatRReads) {
  const test::TestFolder folder;
  if (!test::Runs(folder.Path(), "Rscript --version")) GTEST_SKIP() << "r-base-core is missing";
  const int questions = MakeTables(folder, CodebookKind::r);
  test::PutFile(folder / "elsewhere/check.R", R"(
for (t in c("observations", "survey", "episodes", "segments", "questions"))
  source(paste0("../", t, ".R"))
texts <- readLines("../texts", encoding = "UTF-8")
q <- questions
stopifnot(all(q$text == texts), is.factor(q$source), is.factor(q$activity),
  identical(levels(q$source), c("Teacher question", "Student question")),
  sum(q$source == "Student question") == nrow(q) / 2, all(q$activity == "Supervised/Monitoring"),
  inherits(q$date, "Date"), format(q$date[1]) == "2001-03-14", q$class_start[1] == "09:07:30",
  is.numeric(q$question), sum(q$question) == sum(seq_len(nrow(q))), q$respondent[2] == " leading, \"quoted\"",
  attr(q$respondent, "label") == "Who answers question?", enc2utf8(q$observer[1]) == "\u00c4B",
  nrow(observations) == 2, is.na(observations$questions_per_minute[2]), is.na(observations$estimates[2]),
  observations$estimates[1] == 1, observations$offtask_04[1] == 0.125, abs(observations$minutes_15[1] * 60 - 49) < 1e-5,
  is.character(segments$about), segments$about[1] == "NULL", sum(segments$seconds) == 120,
  survey$evaluation_other_text == "NA", survey$s03_flexibility == "Can't tell", is.na(survey$s04_talk_time),
  survey$s16_other_disciplines == "Never or almost never", survey$evaluation_other == "Yes",
  nchar(episodes$description[1]) == 405, episodes$offtask[1] == 1)
)");
  std::string texts;
  for (const std::string text : test::kAwkwardTexts) {
    texts += (text == "=1+1" ? "'" : "") + (text == "a\tb" ? "a b" : text) + "\n";
  }
  test::PutFile(folder / "texts", texts);
  EXPECT_EQ(questions, std::size(test::kAwkwardTexts));
  EXPECT_TRUE(test::Runs(folder / "elsewhere", "Rscript check.R") &&
              test::Runs(folder / "elsewhere", "env LC_ALL=C Rscript check.R"))
      << test::FileBytes(folder / "elsewhere/out");

  // The table lies beside the script, however that is run.
  ASSERT_TRUE(test::Runs(folder.Path(), "mkdir 'my study' && cp questions.* 'my study'"));
  for (const char* command : {
           "cd elsewhere && Rscript '../my study/questions.R'",
           "Rscript -e \"source('my study/questions.R', chdir = TRUE)\" -e "
           "'stopifnot(nrow(questions) > 0)'",
           "cd 'my study' && Rscript -e 'sys.source(\"questions.R\", globalenv())'",
           "cd 'my study' && Rscript -e 'source(file(\"questions.R\"))'",
       }) {
    EXPECT_TRUE(
        test::Runs(folder.Path(), std::string("rm -f questions.csv && ( ") + command + " )"))
        << command << "\n"
        << test::FileBytes(folder / "out");
  }
}

TEST(Codebook, IsSyntaxThatPsppReads) {
  const test::TestFolder folder;
  if (!test::Runs(folder.Path(), "pspp --version")) GTEST_SKIP() << "pspp is missing";
  const int questions = MakeTables(folder, CodebookKind::spss);
  std::string script;
  for (const TidyTable table : kTidyTables) {
    const std::string name(NameOf(table));
    std::istringstream lines(test::FileBytes(folder / (name + ".sps")));
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 256U) << line;
    script += "INSERT FILE='" + name + ".sps'.\nSAVE OUTFILE='" + name + ".sav'.\n";
  }
  test::PutFile(folder / "all.sps", script + R"(
GET FILE='questions.sav'.
SAVE TRANSLATE /OUTFILE='q.csv' /TYPE=CSV /FIELDNAMES /REPLACE.
COMPUTE all_rows=1.
AGGREGATE OUTFILE=* /BREAK=all_rows /n=N /last=SUM(question) /coded=NU(uptake) /day=MAX(date) /began=MAX(class_start).
SAVE TRANSLATE /OUTFILE='sums.csv' /TYPE=CSV /REPLACE.
GET FILE='observations.sav'.
COMPUTE all_rows=1.
AGGREGATE OUTFILE=* /BREAK=all_rows /n=N /minutes=SUM(minutes_15) /offtask=MEAN(offtask_04) /rates=NU(questions_per_minute).
SAVE TRANSLATE /OUTFILE='means.csv' /TYPE=CSV /REPLACE.
GET FILE='episodes.sav'.
COMPUTE length = LENGTH(RTRIM(description)).
COMPUTE all_rows=1.
AGGREGATE OUTFILE=* /BREAK=all_rows /longest=MAX(length) /offtask=MAX(offtask).
SAVE TRANSLATE /OUTFILE='episodes.txt' /TYPE=CSV /REPLACE.
GET FILE='survey.sav'.
FREQUENCIES s03_flexibility s16_other_disciplines s04_talk_time.
)");
  EXPECT_TRUE(test::Runs(folder.Path(), "pspp -o out.txt all.sps"))
      << test::FileBytes(folder / "out");
  EXPECT_EQ(test::FileBytes(folder / "out"), "");
  const auto made = [&](const char* name) { return test::FileBytes(folder / name); };
  EXPECT_EQ(made("sums.csv"), "1," + std::to_string(questions) + ",55,5,03/14/2001,09:07:30\n");
  EXPECT_EQ(made("means.csv"), "1,2,0.81666666,0.125,1\n");
  EXPECT_EQ(made("episodes.txt"), "1,405,1\n");
  for (const char* text :
       {",NA,", "\" leading, \"\"quoted\"\"\"", "\"Grüße, Öğretmen?\"", ",It's 'so',"}) {
    EXPECT_NE(made("q.csv").find(text), std::string::npos) << text;
  }
  EXPECT_NE(made("out.txt").find("Missing Can't tell"), std::string::npos);
  EXPECT_NE(made("out.txt").find("Valid Never or almost"), std::string::npos);
}

}  // namespace
}  // namespace orvex
