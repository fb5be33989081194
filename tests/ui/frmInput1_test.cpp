#include "ui/forms/frmInput1.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <functional>

#include "support/desk.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

class SetUpForm : public testing::Test {
 protected:
  void SetUp() override {
    Activate(form_);
    Keys("AB\n7\n12\n31\n25");
  }

  QLineEdit* Box(const char* name) const { return Find<QLineEdit>(form_, name); }
  std::string Text(const char* box) const { return Box(box)->text().toStdString(); }

  Desk desk_;
  frmInput1 form_{desk_.services};
};

TEST_F(SetUpForm, MovesBetweenTheBoxesWithTheKeys) {
  Keys("{Down}");
  EXPECT_EQ(FocusedName(), "Command1");
  Box("txtNumStudents")->setFocus();
  for (const char* to :
       {"txtObservNum", "txtClassNum", "txtSchoolNum", "txtInitials", "txtNumStudents"}) {
    Keys("{Up}");
    EXPECT_EQ(FocusedName(), to);
    EXPECT_EQ(Box(to)->cursorPosition(), Text(to).size());
  }
  Find(form_, "Command2")->setFocus();
  Keys("\n{Up}");
  EXPECT_EQ(FocusedName(), "Command2");
  EXPECT_EQ(Text("txtSchoolNum"), "7") << "Enter on Reset has reset nothing";
  Keys("{Alt+R}");
  EXPECT_EQ(FocusedName(), "txtInitials");
  EXPECT_EQ(Text("txtInitials") + Text("txtSchoolNum") + Text("txtNumStudents"), "AB");
}

TEST_F(SetUpForm, EmptiesWhatIsNoNumberAndKeepsTheFocusThere) {
  const std::function<void()> ways[] = {
      [] { Keys("\n"); },
      [] { Keys("\t"); },
      [] { Keys("{Alt+R}"); },
      [this] { Click(Box("txtInitials")); },
      [this] { Click(Find(form_, "Command2")); },
  };
  for (const auto& leave : ways) {
    Box("txtClassNum")->setFocus();
    Box("txtClassNum")->selectAll();
    Keys("1x");
    leave();
    EXPECT_EQ(Text("txtClassNum"), "");
    EXPECT_EQ(Text("txtSchoolNum"), "7") << "the button was not pressed";
    Keys("6");
    EXPECT_EQ(Text("txtClassNum"), "6") << "the box really has the focus";
  }
  EXPECT_TRUE(form_.close());
}

}  // namespace
}  // namespace orvex
