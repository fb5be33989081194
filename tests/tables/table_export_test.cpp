// EPSDATA.TXT and SURDATA.TXT compared with tables made by another program, and what happens when
// something goes wrong.

#include "tables/table_export.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

#include "store/eps_writer.h"
#include "store/file_error.h"
#include "store/storage.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"
#include "tables/episode_rows.h"
#include "tables/old_table.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

const TableKind kEpsData = TableOf(ExportKind::epsData);
const TableKind kSurData = TableOf(ExportKind::surData);

void CopySample(const std::string& sample, const fs::path& to) {
  test::PutFile(to, test::FileBytes(test::TestData(sample)));
}

/// Joins the list in `folder`. Returns the texts of the problems.
std::vector<std::string> Join(Storage& storage, TableKind kind, const fs::path& folder,
                              BadFile badFile = BadFile::endsTheTable) {
  TableExport table(storage, kind, FilesOf(kind.files, ReadFileList(folder / "LIST.TXT")),
                    folder / kind.fileName, badFile);
  std::vector<std::string> problems;
  while (!table.Finished()) {
    if (const auto problem = table.Step().problem) {
      const std::string text = problem->Text();
      problems.push_back(text.substr(folder.string().size() + 1));
    }
  }
  table.Commit();
  return problems;
}

TEST(TableExport, MakesOfTheSamplesTheTablesOfAnotherProgram) {
  for (const char* name : {"class", "odd"}) {
    SCOPED_TRACE(name);
    const fs::path samples = test::SamplesFolder() / name;
    for (const auto& [kind, table] :
         {std::pair{kEpsData, "EPSDATA.TXT"}, std::pair{kSurData, "SURDATA.TXT"}}) {
      const test::TestFolder folder;
      Storage storage;
      TableExport made(storage, kind, ReadFileList(samples / "LIST.TXT"), folder / table,
                       BadFile::endsTheTable);
      while (!made.Finished()) EXPECT_FALSE(made.Step().problem);
      made.Commit();
      const std::string expected = test::FileBytes(samples / "expected" / table);
      ASSERT_FALSE(expected.empty());
      EXPECT_EQ(test::FileBytes(folder / table), expected);
    }
  }
}

TEST(TableExport, RefusesNamesAndCountsThatTheTableCannotHold) {
  const test::TestFolder folder;
  Storage storage;
  EpsObservation large;
  large.Episodes.resize(100);
  const auto write = [&] {
    WriteEpsFile(storage, folder / "5-12-3.eps", large.header, large.Episodes);
  };
  test::PutFile(folder / "LIST.TXT", "5-12-3\n");
  large.header.identity = {"AB", "5", "12", "3", "28"};
  write();
  EXPECT_EQ(Join(storage, kEpsData, folder.Path()), std::vector<std::string>{});
  EXPECT_EQ(std::ranges::count(test::FileBytes(folder / "EPSDATA.TXT"), '\n'), 100);
  large.Episodes.resize(101);
  write();
  EXPECT_EQ(Join(storage, kEpsData, folder.Path()),
            std::vector<std::string>{"5-12-3.eps: 101 episodes; no more than 100 can be exported"});
  const std::pair<const char*, const char*> names[] = {
      {"5-12", "expected a name with school, class and observation, like 5-12-3"},
      {"5-12-3,4", "expected a name without commas, quotes and control characters"},
      {"5\t-12-3", "expected a name without commas, quotes and control characters"},
  };
  for (const auto& [name, expected] : names) {
    test::PutFile(folder / "LIST.TXT", name);
    CopySample("class/17-17-7.eps", folder / (name + std::string(".eps")));
    const auto problems = Join(storage, kEpsData, folder.Path());
    ASSERT_EQ(problems.size(), 1U) << name;
    EXPECT_TRUE(problems[0].ends_with(expected)) << problems[0];
  }
}

TEST(TableExport, LeavesAloneWhatItHasNothingBetterFor) {
  const test::TestFolder folder;
  Storage storage;
  const fs::path table = folder / "EPSDATA.TXT";
  // The list itself must not be replaced, even under another name.
  test::PutFile(table, "5-12-3\n");
  fs::create_symlink(table, folder / "LIST.TXT");
  EXPECT_THROW(Join(storage, kEpsData, folder.Path()), FileError);
  EXPECT_EQ(test::FileBytes(table), "5-12-3\n");
  fs::remove(folder / "LIST.TXT");
  // Nor a file that the table's name leads to.
  test::PutFile(folder / "LIST.TXT", "5-12-3\n");
  test::PutFile(folder / "5-12-3.eps", "a class");
  fs::remove(table);
  fs::create_symlink(folder / "5-12-3.eps", table);
  EXPECT_THROW(Join(storage, kEpsData, folder.Path()), FileError);
  EXPECT_EQ(test::FileBytes(folder / "5-12-3.eps"), "a class");
  fs::remove(table);
  fs::remove(folder / "5-12-3.eps");

  // An earlier table must stay when all files are bad and give no rows.
  test::PutFile(table, test::kOldTable);
  test::PutFile(folder / "LIST.TXT", "5-12-3\n6-1-1\n");
  EXPECT_EQ(WithoutNewTable(table), "The earlier EPSDATA.TXT stays as it was.");
  for (const BadFile badFile : {BadFile::endsTheTable, BadFile::isSkipped}) {
    Join(storage, kEpsData, folder.Path(), badFile);
    EXPECT_EQ(test::FileBytes(table), test::kOldTable);
  }
  fs::remove(table);
  EXPECT_EQ(WithoutNewTable(table), "No EPSDATA.TXT was made.");
  Join(storage, kEpsData, folder.Path());
  EXPECT_TRUE(fs::exists(table));
}

TEST(TableExport, RemovesWhatKilledExportsHaveLeft) {
  const test::TestFolder folder;
  Storage storage;
  test::PutFile(folder / "LIST.TXT", "");
  const pid_t gone = ::fork();
  if (gone == 0) ::_exit(0);
  ::waitpid(gone, nullptr, 0);
  const auto temporary = [&](pid_t process, int hours) {
    const fs::path path =
        folder / (".orvex-" + std::to_string(process) + "-" + std::to_string(hours) + ".tmp");
    test::PutFile(path, "rows");
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(hours));
    return path;
  };
  const fs::path stray = temporary(gone, 25);
  const fs::path others[] = {temporary(gone, 23), temporary(::getppid(), 25),
                             folder / ".orvex-notes.tmp", folder / ".orvex-1-1"};
  for (const fs::path& other : others) {
    if (!fs::exists(other)) test::PutFile(other, "something else");
  }
  Join(storage, kEpsData, folder.Path());
  EXPECT_FALSE(fs::exists(stray));
  for (const fs::path& other : others) EXPECT_TRUE(fs::exists(other)) << other;
}

}  // namespace
}  // namespace orvex
