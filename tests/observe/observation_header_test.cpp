#include "observe/observation_header.h"

#include <gtest/gtest.h>

#include <string>

#include "support/desk.h"

namespace orvex {
namespace {

using test::FileBytes;
using enum HeaderBox;

struct HeaderTest : testing::Test {
  HeaderTest() { desk.log.LogBlankLine(); }

  /// Types into a box and leaves it. False when the box takes the focus back.
  bool Change(HeaderBox box, const std::string& text) {
    header.Enter(box);
    header.Type(box, text);
    return header.Leave(box);
  }
  std::filesystem::path Log(const std::string& name) { return desk.folder / ("BAK/" + name); }

  test::Desk desk;
  TypedNumbers typed;
  ObservationHeader header = [this] {
    desk.OpenLog();
    return ObservationHeader(desk.services, typed);
  }();
};

TEST_F(HeaderTest, TheOpenLogFollowsTheNumbers) {
  desk.log.LogRevisedN("1");
  EXPECT_TRUE(Change(classNum, "13"));
  EXPECT_EQ(header.ClassIdText(), "Class ID  7-13-3");
  EXPECT_FALSE(std::filesystem::exists(Log("7/12/7-12-3.bak")));
  desk.log.LogRevisedN("2");
  EXPECT_EQ(FileBytes(Log("7/13/7-13-3.bak")),
            "\r\nREVISED N= 1 09:00:00\r\nREVISED N= 2 09:00:00\r\n");
  EXPECT_TRUE(Change(classNum, "13"));
  EXPECT_TRUE(Change(observNum, "04"));  // the log is named as typed
  EXPECT_TRUE(std::filesystem::exists(Log("7/13/7-13-04.bak")));
}

TEST_F(HeaderTest, AnExistingLogIsOverwrittenOnlyOnRequest) {
  test::PutFile(Log("8/12/8-12-3.bak"), "another class");
  test::PutFile(Log("7/12/7-12-9.bak"), "another class");
  desk.prompter.Expect("8-12-3.bak already exists. Overwrite it?", Answer::cancel);
  EXPECT_FALSE(Change(schoolNum, "8"));
  EXPECT_EQ(header.Text(schoolNum), "");
  EXPECT_EQ(FileBytes(Log("8/12/8-12-3.bak")), "another class");
  // An emptied box gets its number back before the user can leave it.
  EXPECT_FALSE(header.Leave(schoolNum));
  EXPECT_EQ(header.Text(schoolNum), "7");
  EXPECT_TRUE(header.Leave(schoolNum));

  desk.prompter.Expect("7-12-9.bak already exists. Overwrite it?", Answer::cancel);
  EXPECT_FALSE(Change(observNum, "9")) << "the box asks until it agrees with the log";
  EXPECT_EQ(header.Text(observNum), "9");
  EXPECT_EQ(desk.program.identity.ClassId(), "7-12-3") << "what is typed is no number yet";
  EXPECT_EQ(FileBytes(Log("7/12/7-12-9.bak")), "another class");
  EXPECT_EQ(desk.log.File().Path(), Log("7/12/7-12-3.bak"));
  EXPECT_TRUE(Change(classNum, "12")) << "a declined number holds up no other box";
  desk.prompter.Expect("7-12-9.bak already exists. Overwrite it?", Answer::ok);
  EXPECT_TRUE(Change(observNum, "9"));
  EXPECT_EQ(FileBytes(Log("7/12/7-12-9.bak")), "\r\n");
  EXPECT_EQ(desk.program.identity.ClassId(), "7-12-9");
  const std::string& details = desk.prompter.asked.back().details;
  const std::size_t name = details.find("7-12-9 ");
  EXPECT_EQ(FileBytes(Log("7/12/" + details.substr(name, details.size() - name - 2))),
            "another class");
  EXPECT_EQ(desk.prompter.asked.back().buttons, Buttons::okCancel);
}

TEST_F(HeaderTest, RefusesWhatNamesNoFile) {
  for (const char* text : {"x", "-1", "32768", "1e2"}) {
    EXPECT_FALSE(Change(schoolNum, text)) << text;
    EXPECT_EQ(header.Text(schoolNum), "");
  }
  EXPECT_FALSE(Change(observNum, ""));
  EXPECT_EQ(header.Text(observNum), "3");
  EXPECT_TRUE(std::filesystem::exists(Log("7/12/7-12-3.bak")));

  test::PutFile(desk.folder / "BAK/9", "a file in the way");
  desk.prompter.Expect("The session log could not be renamed.", Answer::ok);
  EXPECT_FALSE(Change(schoolNum, "9"));
  EXPECT_TRUE(std::filesystem::exists(Log("7/12/7-12-3.bak")));
  // What was typed stays, to be tried again.
  std::filesystem::remove(desk.folder / "BAK/9");
  EXPECT_EQ(header.Text(schoolNum), "9");
  EXPECT_TRUE(header.Leave(schoolNum));
  EXPECT_TRUE(std::filesystem::exists(Log("9/12/9-12-3.bak")));
}

}  // namespace
}  // namespace orvex
