// The tables of the observations that are shown in the study's window.

#include "tables/study_tables.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/desk.h"
#include "support/save_faults.h"
#include "tables/old_table.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

const std::set<TidyTable> kAllTables = {kTidyTables.begin(), kTidyTables.end()};

/// A study: two whole observations, one without a survey, one whose episode file is broken.
struct StudyDesk : test::Desk {
  StudyDesk() {
    fs::create_directory(folder / "out");
    Add("11-4-2", "class/11-4-2.eps", "class/11-4-2.sur");
    Add("17-17-7", "class/17-17-7.eps", "class/17-17-7.sur");
    Add("22-5-11", "class/22-5-11.eps", "");
    Add("5-12-3", "bad/text-in-P1-0.eps", "");
  }

  fs::path Copy(const std::string& sample, const std::string& name) const {
    if (sample.empty()) return {};
    const fs::path file = folder / name;
    fs::create_directories(file.parent_path());
    test::PutFile(file, test::FileBytes(test::TestData(sample)));
    return file;
  }
  void Add(const std::string& name, const std::string& eps, const std::string& sur) {
    observations.push_back({name, Copy(eps, name + ".eps"), Copy(sur, name + ".sur")});
  }
  std::string Table(const std::string& name) const {
    return test::FileBytes(folder / "out" / name);
  }

  std::vector<StudyObservation> observations;
};

/// The text of a table that is made of the desk's folder at once.
std::string TableOf(const StudyDesk& desk, TableKind kind) {
  std::istringstream none;
  FileList list;
  AddSource(desk.folder.Path(), none, list);
  FileList files = FilesFor(kind, list);
  std::ostringstream text;
  TableExport table(text, std::move(kind), std::move(files), BadFile::isSkipped);
  while (!table.Finished()) table.Step();
  table.Commit();
  return text.str();
}

void WorkToTheEnd(StudyTables& tables) {
  while (tables.Working()) tables.Work();
}

TEST(StudyTables, AreThoseOfTheFolder) {
  StudyDesk desk;
  StudyTables tables(desk.services, desk.observations,
                     {.exports = {ExportKind::epsData, ExportKind::surData},
                      .tables = kAllTables,
                      .codebook = CodebookKind::r,
                      .folder = desk.folder / "out"});
  EXPECT_EQ(tables.Count(), 4U + 2 + 4 * 4 + 2);
  EXPECT_EQ(tables.ProgressText(), "EPSDATA.TXT: 0 of 4 files");
  tables.Work();
  EXPECT_EQ(tables.ProgressText(), "EPSDATA.TXT: 1 of 4 files");
  WorkToTheEnd(tables);
  EXPECT_EQ(tables.Done(), tables.Count());
  EXPECT_EQ(tables.ProgressText(), "");
  EXPECT_EQ(desk.Table("EPSDATA.TXT"), TableOf(desk, orvex::TableOf(ExportKind::epsData)));
  EXPECT_EQ(desk.Table("SURDATA.TXT"), TableOf(desk, orvex::TableOf(ExportKind::surData)));
  for (const TidyTable table : kTidyTables) {
    const std::string name = std::string(NameOf(table)) + ".csv";
    EXPECT_EQ(desk.Table(name), TableOf(desk, TidyTableKind(table))) << name;
    EXPECT_TRUE(fs::exists(desk.folder / "out" / CodebookFileName(table, CodebookKind::r)));
  }
  const std::string outcome = tables.Outcome();
  EXPECT_TRUE(
      outcome.starts_with("EPSDATA.TXT: 16 rows from 3 files\n"
                          "SURDATA.TXT: 2 rows from 2 files\n"))
      << outcome;
  EXPECT_TRUE(
      outcome.ends_with("\nFiles that could not be read are left out:\n"
                        "5-12-3.eps, line 24: field 1: expected a question count (a "
                        "number), found \"x\".\n"))
      << outcome;
}

TEST(StudyTables, FitIntoOneDatabase) {
  StudyDesk desk;
  StudyTables tables(desk.services, desk.observations,
                     {.database = true, .folder = desk.folder / "out"});
  WorkToTheEnd(tables);
  EXPECT_TRUE(desk.Table("study.sqlite").starts_with("SQLite format 3"));
  EXPECT_TRUE(tables.Outcome().starts_with("study.sqlite: ")) << tables.Outcome();
}

TEST(StudyTables, StayAsTheyWereWhenStoppedOrWithoutFiles) {
  StudyDesk desk;
  desk.observations.erase(desk.observations.begin(), desk.observations.begin() + 2);
  test::PutFile(desk.folder / "out/segments.csv", test::kOldTable);
  StudyTables tables(desk.services, desk.observations,
                     {.exports = {ExportKind::surData},
                      .tables = {TidyTable::episodes, TidyTable::segments},
                      .folder = desk.folder / "out"});
  while (tables.Working() && tables.Outcome().find("episodes.csv: ") == std::string::npos) {
    tables.Work();
  }
  tables.Work();
  tables.Stop();
  EXPECT_FALSE(tables.Working());
  EXPECT_EQ(desk.Table("segments.csv"), test::kOldTable);
  EXPECT_FALSE(desk.Table("episodes.csv").empty());
  EXPECT_EQ(tables.Outcome().substr(0, tables.Outcome().find("\n\nFiles")),
            "episodes.csv: 6 rows from 1 file\n\n"
            "SURDATA.TXT was not made: there is no survey file (.sur).\n"
            "The earlier segments.csv stays as it was.");
}

TEST(StudyTables, TellOfNamesThatDisagreeAndComeTwice) {
  StudyDesk desk;
  desk.observations.clear();
  desk.Add("site1/9-9-9", "class/17-17-7.eps", "");
  desk.Add("site2/9-9-9", "class/17-17-7.eps", "");
  StudyTables tables(
      desk.services, desk.observations,
      {.tables = {TidyTable::episodes, TidyTable::questions}, .folder = desk.folder / "out"});
  WorkToTheEnd(tables);
  EXPECT_TRUE(tables.Outcome().ends_with(
      "\nFiles whose rows are worth a look:\nsite2/9-9-9 has the same numbers as " +
      (desk.folder / "site1/9-9-9.eps").string() +
      ".\n9-9-9.eps: the identity line says 17-17-7.\n"))
      << tables.Outcome();
}

struct TablesScene : test::SaveScene {
  explicit TablesScene(bool older) {
    if (!older) return;
    for (const char* name : {"EPSDATA.TXT", "questions.csv", "questions-codebook.csv"}) {
      test::PutFile(desk.folder / name, test::kOldTable);
    }
  }
  void Save() override {
    const fs::path file = desk.folder / "17-17-7.eps";
    test::PutFile(file, test::FileBytes(test::TestData("class/17-17-7.eps")));
    StudyTables tables(services, {{"17-17-7", file, {}}},
                       {.exports = {ExportKind::epsData},
                        .tables = {TidyTable::questions},
                        .codebook = CodebookKind::csv,
                        .folder = desk.folder.Path()});
    WorkToTheEnd(tables);
  }
};

TEST(StudyTables, AreWrittenWholeOrTold) {
  test::FailEveryCallOf<TablesScene>("the tables of a study", false);
}

}  // namespace
}  // namespace orvex
