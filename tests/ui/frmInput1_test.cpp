#include "ui/frmInput1.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "support/desk.h"
#include "ui/form_driver.h"

namespace orvex {
namespace {

using namespace test;

class SetUpForm : public testing::Test {
 protected:
  void SetUp() override { Activate(form_); }

  QLineEdit* Box(const char* name) const { return Find<QLineEdit>(form_, name); }
  std::string Text(const char* box) const { return Box(box)->text().toStdString(); }
  QPushButton* Start() const { return Find<QPushButton>(form_, "Command1"); }
  QPushButton* Reset() const { return Find<QPushButton>(form_, "Command2"); }

  /// Types into all boxes, from the first one to the last, with Enter between them.
  void Fill(const char* initials, const char* school, const char* classNum, const char* observ,
            const char* students) {
    Box("txtInitials")->setFocus();
    Type(initials);
    for (const char* text : {school, classNum, observ, students}) {
      Press(Qt::Key_Return);
      Type(text);
    }
  }

  Desk desk_;
  frmInput1 form_{desk_.services};
};

TEST_F(SetUpForm, MovesBetweenTheBoxesWithTheKeys) {
  struct Move {
    const char* from;
    Qt::Key key;
    const char* to;
    bool caretAtEnd = true;
  };
  const Move moves[] = {
      {"txtInitials", Qt::Key_Return, "txtSchoolNum"},
      {"txtInitials", Qt::Key_Down, "txtSchoolNum"},
      {"txtInitials", Qt::Key_Up, "txtNumStudents"},
      {"txtSchoolNum", Qt::Key_Enter, "txtClassNum"},
      {"txtSchoolNum", Qt::Key_Up, "txtInitials"},
      {"txtClassNum", Qt::Key_Down, "txtObservNum", false},
      {"txtClassNum", Qt::Key_Return, "txtObservNum", false},
      {"txtClassNum", Qt::Key_Up, "txtSchoolNum"},
      {"txtObservNum", Qt::Key_Return, "txtNumStudents"},
      {"txtObservNum", Qt::Key_Up, "txtClassNum"},
      {"txtNumStudents", Qt::Key_Up, "txtObservNum"},
      {"txtNumStudents", Qt::Key_Down, "Command1"},
      {"Command2", Qt::Key_Down, "txtInitials"},
      {"Command2", Qt::Key_Up, "Command2"},
      {"Command2", Qt::Key_Return, "Command2"},
  };
  Fill("AB", "7", "12", "31", "25");
  for (const Move& move : moves) {
    SCOPED_TRACE(std::string(move.from) + " " + std::to_string(move.key));
    for (QLineEdit* box : form_.findChildren<QLineEdit*>()) box->setCursorPosition(0);
    Find(form_, move.from)->setFocus();
    Press(move.key);
    EXPECT_EQ(FocusedName(), move.to);
    if (const auto* box = qobject_cast<QLineEdit*>(Find(form_, move.to))) {
      EXPECT_EQ(box->cursorPosition(), move.caretAtEnd ? box->text().size() : 0);
      EXPECT_FALSE(box->hasSelectedText());
    }
  }
  EXPECT_EQ(Text("txtSchoolNum"), "7") << "Enter on Reset has reset nothing";
}

TEST_F(SetUpForm, StartsAClassFromTheKeyboardAlone) {
  EXPECT_FALSE(Start()->isEnabled());
  Fill("AB", "007", "12", "3", " 5");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("txtSchoolNum"), "7");
  EXPECT_EQ(Text("txtNumStudents"), " 5");
  EXPECT_EQ(FocusedName(), "Command1");
  Press(Qt::Key_Return);
  EXPECT_EQ(desk_.log.File().Path(), desk_.folder / "BAK/7/12/7-12-3.bak");
  EXPECT_EQ(desk_.screens.Take(), (std::vector<std::string>{"show liveObservation", "hide setUp"}));
}

TEST_F(SetUpForm, OffersStartWhileTheNumbersAreGood) {
  Fill("", "7", "12", "3", "0");
  EXPECT_FALSE(Start()->isEnabled());
  Press(Qt::Key_Return);
  EXPECT_EQ(FocusedName(), "txtNumStudents") << "0 students are none: emptied";
  EXPECT_EQ(Text("txtNumStudents"), "");
  Press(Qt::Key_Return);
  EXPECT_EQ(FocusedName(), "txtInitials");
  Press(Qt::Key_Up);
  Type("25");
  EXPECT_TRUE(Start()->isEnabled());
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Backspace);
  EXPECT_FALSE(Start()->isEnabled());
}

TEST_F(SetUpForm, WarnsOfAnEpisodeFileThatIsThere) {
  PutFile(desk_.folder / "EPS/7/12/7-12-3.eps", "");
  const auto* warning = Find<QLabel>(form_, "Label6");
  Fill("", "07", "12", "3", "25");
  EXPECT_EQ(warning->text().toStdString(), "");
  Press(Qt::Key_Return);
  EXPECT_EQ(warning->text().toStdString(), "WARNING: 7-12-3.eps already exits!");
  EXPECT_TRUE(Start()->isEnabled());
  Box("txtObservNum")->setFocus();
  Box("txtObservNum")->selectAll();
  Type("4");
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(warning->text().toStdString(), "");
}

TEST_F(SetUpForm, EmptiesWhatIsNoNumberAndKeepsTheFocusThere) {
  using Leave = std::function<void()>;
  const std::pair<const char*, Leave> ways[] = {
      {"Enter", [] { Press(Qt::Key_Return); }},
      {"Tab", [] { Press(Qt::Key_Tab); }},
      {"mouse on a box", [this] { Click(Box("txtInitials")); }},
      {"mouse on a button", [this] { QTest::mousePress(Reset(), Qt::LeftButton); }},
      {"mnemonic of a button", [] { Press(Qt::Key_R, Qt::AltModifier); }},
  };
  Fill("AB", "7", "12", "3", "25");
  for (const auto& [way, leave] : ways) {
    SCOPED_TRACE(way);
    Box("txtClassNum")->setFocus();
    Box("txtClassNum")->selectAll();
    Type("1x");
    leave();
    EXPECT_EQ(FocusedName(), "txtClassNum");
    EXPECT_EQ(Text("txtClassNum"), "");
    EXPECT_EQ(Text("txtSchoolNum"), "7") << "the button was not pressed";
    Type("6");
    EXPECT_EQ(Text("txtClassNum"), "6") << "the box really has the focus";
  }
}

TEST_F(SetUpForm, IsNotLeftWhenAnotherWindowComesInFront) {
  Box("txtSchoolNum")->setFocus();
  Type("12-");
  {
    QWidget other;
    Activate(other);
  }
  Activate(form_);
  EXPECT_EQ(FocusedName(), "txtSchoolNum");
  EXPECT_EQ(Text("txtSchoolNum"), "12-") << "the observer was about to correct it";
  Press(Qt::Key_Tab);
  EXPECT_EQ(Text("txtSchoolNum"), "");
}

TEST_F(SetUpForm, ResetsTheNumbersButNotTheInitials) {
  Fill("AB", "7", "12", "3", "25");
  Press(Qt::Key_R, Qt::AltModifier);
  EXPECT_EQ(FocusedName(), "txtInitials");
  EXPECT_EQ(Text("txtInitials"), "AB");
  for (const char* box : {"txtSchoolNum", "txtClassNum", "txtObservNum", "txtNumStudents"}) {
    EXPECT_EQ(Text(box), "") << box;
  }
  EXPECT_FALSE(Start()->isEnabled());
}

}  // namespace
}  // namespace orvex
