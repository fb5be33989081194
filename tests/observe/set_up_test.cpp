#include "observe/set_up.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/desk.h"

namespace orvex {
namespace {

using test::FileBytes;
using enum HeaderBox;
using Control = orvex::SetUp::Control;

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

TEST_F(SetUpTest, EnterLeadsThroughTheBoxesAndToStart) {
  struct Move {
    HeaderBox from;
    Control down;
    Caret caret;
    Control up;
  };
  const Move moves[] = {
      {initials, Control::schoolNum, Caret::atEnd, Control::numStudents},
      {schoolNum, Control::classNum, Caret::atEnd, Control::initials},
      {classNum, Control::observNum, Caret::stay, Control::schoolNum},
      {observNum, Control::numStudents, Caret::atEnd, Control::classNum},
      {numStudents, Control::initials, Caret::atEnd, Control::observNum},
  };
  for (const Move& move : moves) {
    setUp.EnterOrDown(move.from);
    EXPECT_EQ(setUp.TakeFocus(), (orvex::SetUp::Focus::Target{move.down, move.caret}));
    setUp.Up(move.from);
    EXPECT_EQ(setUp.TakeFocus(), (orvex::SetUp::Focus::Target{move.up, Caret::atEnd}));
  }
  Fill("5", "12", "3", "25");
  setUp.EnterOrDown(numStudents);
  EXPECT_EQ(setUp.TakeFocus()->control, Control::start);
}

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
      {"5", "12", "3", "", false},
  };
  for (const Case& c : cases) {
    Fill(c.school, c.klass, c.observation, c.students);
    EXPECT_EQ(setUp.CanStart(), c.canStart) << c.school << c.klass << c.observation << c.students;
  }
}

TEST_F(SetUpTest, ATextThatIsNoNumberIsEmptiedAndKeepsTheFocus) {
  Fill("x7", "40000", "3", "0");
  for (const HeaderBox box : {schoolNum, classNum, numStudents}) {
    setUp.Leave(box);
    EXPECT_EQ(setUp.Text(box), "");
    EXPECT_TRUE(setUp.TakeFocus().has_value());
  }
  setUp.Type(initials, "A\"B\"");
  setUp.Leave(observNum);
  setUp.Leave(initials);
  EXPECT_FALSE(setUp.TakeFocus().has_value());
  EXPECT_EQ(setUp.Text(observNum), "3");
  EXPECT_EQ(setUp.Text(initials), "A'B'");
  setUp.Reset();
  EXPECT_EQ(setUp.Text(observNum), "");
  EXPECT_EQ(setUp.Text(initials), "A'B'");
  EXPECT_EQ(setUp.TakeFocus()->control, Control::initials);
}

TEST_F(SetUpTest, WarnsOfAnEpisodeFileThatIsThere) {
  test::PutFile(desk.folder / "EPS/5/12/5-12-3.eps", "");
  Fill("05", "012", "3.0", "25");
  setUp.EnterOrDown(numStudents);
  EXPECT_EQ(setUp.Warning(), "WARNING: 5-12-3.eps already exits!");
  EXPECT_EQ(setUp.Text(schoolNum), "5");
  EXPECT_TRUE(setUp.CanStart());
  setUp.Type(observNum, "4");
  setUp.EnterOrDown(numStudents);
  EXPECT_EQ(setUp.Warning(), "");
}

TEST_F(SetUpTest, StartOpensTheLogAfreshAndTheLiveForm) {
  test::PutFile(desk.folder / "BAK/7/12/7-12-3.bak", "of an earlier class");
  setUp.Type(initials, "AB");
  Fill("007", "12", "3", "25");
  desk.clock.Set(9, 5, 12);
  setUp.Start();
  EXPECT_EQ(desk.screens.Take(), (std::vector<std::string>{"show liveObservation", "hide setUp"}));
  EXPECT_EQ(desk.NewLogText(),
            "********* Orvex 4.10 BAK file *********\n"
            "7-12-3.bak     AB     03-14-01\n"
            "LOG ON: 09:05:12     25 Students\n");
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
  setUp.Start();
  EXPECT_EQ(desk.screens.Take().size(), 2U);
}

}  // namespace
}  // namespace orvex
