#include "observe/set_up.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "observe/observation_header.h"
#include "recovery/kept_content.h"
#include "store/older_file.h"
#include "support/desk.h"
#include "support/faulty_storage.h"

namespace orvex {
namespace {

using enum HeaderBox;

struct SetUpTest : testing::Test {
  void Fill(const std::string& school, const std::string& klass, const std::string& observation,
            const std::string& students) {
    setUp.Type(schoolNum, school);
    setUp.Type(classNum, klass);
    setUp.Type(observNum, observation);
    setUp.Type(numStudents, students);
  }

  test::Desk desk;
  orvex::SetUp setUp{desk.services};
};

TEST_F(SetUpTest, StartNeedsFourNumbersInTheirRange) {
  struct Case {
    const char *school, *klass, *observation, *students;
    bool canStart;
  };
  const Case cases[] = {
      {"5", "12", "3", "25", true},      {"007", "0", " 3 ", " 5", true},
      {"5.5", "+1", "32767", "1", true}, {"5", "12", "3", "0", false},
      {"5", "12", "3", "32768", false},  {"32768", "12", "3", "25", false},
      {"-1", "12", "3", "25", false},    {"5", "", "3", "25", false},
      {"5", "12", "3a", "25", false},    {"5", "12", "3e0", "25", false},
  };
  for (const Case& c : cases) {
    Fill(c.school, c.klass, c.observation, c.students);
    EXPECT_EQ(setUp.CanStart(), c.canStart) << c.school << c.klass << c.observation << c.students;
  }
}

TEST_F(SetUpTest, WarnsOfAnEpisodeFileThatIsThere) {
  test::PutFile(desk.folder / "EPS/5/12/5-12-3.eps", "");
  Fill("05", "012", "3.0", "25");
  setUp.EnterOrDown(numStudents);
  EXPECT_EQ(setUp.Warning(),
            "WARNING: 5-12-3.eps already exits!\nIt is kept under the time of its last change.");
  EXPECT_EQ(setUp.Text(schoolNum), "5");
  EXPECT_TRUE(setUp.CanStart());
}

TEST_F(SetUpTest, AFolderThatCannotBeMadeIsToldAndTheFormStays) {
  test::PutFile(desk.folder / "BAK", "a file in the way");
  Fill("7", "12", "3", "25");
  desk.prompter.Expect("The session log could not be opened.", Answer::ok);
  setUp.Start();
  EXPECT_TRUE(desk.screens.Take().empty());
  EXPECT_NE(desk.prompter.asked.at(0).details.find((desk.folder / "BAK").string()),
            std::string::npos);
  std::filesystem::remove(desk.folder / "BAK");
  const auto log = desk.folder / "BAK/7/12/7-12-3.bak";
  test::PutOldFile(log, "of an earlier class");
  const std::string older = OlderName(log);
  desk.prompter.Expect(
      "There was another class of these numbers. What was there is kept as\n\n" + older,
      Answer::ok);
  setUp.Type(initials, "A\"B");
  setUp.Leave(initials);
  setUp.Start();
  EXPECT_EQ(desk.screens.Take(), (std::vector<std::string>{"show liveObservation", "hide setUp"}));
  EXPECT_EQ(desk.NewLogText(),
            "********* Orvex 4.10 BAK file *********\n"
            "7-12-3.bak     A'B     03-14-01\n"
            "LOG ON: 09:00:00     25 Students\n");
  EXPECT_EQ(test::FileBytes(log.parent_path() / older), "of an earlier class");
}

TEST_F(SetUpTest, AsksForAnotherFolderWhenTheDataFolderHasGone) {
  Fill("7", "12", "3", "25");
  desk.program.DataPath = "/gone";
  const std::string missing = "The data folder is not there:\n\n/gone";
  desk.prompter.Expect(missing, Answer::cancel);
  setUp.Start();
  EXPECT_TRUE(desk.screens.Take().empty());
  desk.prompter.Expect(missing, Answer::yes);
  desk.prompter.ExpectFolder(desk.folder.Path());
  setUp.Start();
  EXPECT_EQ(desk.log.File().Path(), desk.folder / "BAK/7/12/7-12-3.bak");
}

TEST_F(SetUpTest, ASlowDiskHoldsUpNeitherTheStartNorANumberOfTheHeader) {
  test::FaultyStorage disk;
  SessionLog log(disk, desk.clock);
  RecoveryFile recovery(disk);
  const Services services = {desk.program, log,           recovery,     disk,
                             desk.clock,   desk.prompter, desk.screens, desk.folder.Path()};
  orvex::SetUp start(services);
  Fill("7", "12", "3", "25");
  disk.HoldSyncs(true);
  start.Start();
  TypedNumbers typed;
  ObservationHeader header(services, typed);
  recovery.Keep("the class");
  for (const char* number : {"13", "12", "14"}) {
    header.Type(classNum, number);
    EXPECT_TRUE(header.Leave(classNum));
  }
  EXPECT_NE(test::FileBytes(desk.folder / "BAK/7/14/7-14-3.bak"), "");
  recovery.AwaitWritten();
  EXPECT_TRUE(IsKeptAt(desk.folder / "BAK/7/14/7-14-3.recovery"));
  EXPECT_EQ(disk.Injected(), 0);
  disk.HoldSyncs(false);
}

}  // namespace
}  // namespace orvex
