#include "ui/frmClassAct.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <map>

#include "support/desk.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

class LiveForm : public testing::Test, protected Desk {
 protected:
  LiveForm() { OpenLog(); }

  /// A new class, in which the observer has pressed `keys` and said Yes to what was asked.
  void Begin(const std::string& keys) {
    form_.reset();
    for (const auto& [letter, question] : questionOf_) {
      if (keys.find("+" + std::string(1, letter)) == std::string::npos) continue;
      prompter.Expect(question, Answer::yes);
    }
    form_ = std::make_unique<frmClassAct>(services);
    Activate(*form_);
    Keys(keys);
    TickForms();
    Settle();
    NewLogText();
    screens.Take();
  }

  std::vector<QPushButton*> AvailableButtons() const {
    std::vector<QPushButton*> available;
    for (QPushButton* button : form_->findChildren<QPushButton*>()) {
      if (button->isVisible() && button->isEnabled()) available.push_back(button);
    }
    return available;
  }
  QLineEdit* Box(const char* name) const { return Find<QLineEdit>(*form_, name); }
  std::string Text(const char* box) const { return Box(box)->text().toStdString(); }
  std::string Checked() const {
    std::string names;
    for (const QRadioButton* button : form_->findChildren<QRadioButton*>()) {
      if (button->isChecked() && button->isVisible())
        names += button->objectName().toStdString() + " ";
    }
    return names;
  }

  const std::map<char, std::string> questionOf_ = {
      {'S', "Start New Segment?"}, {'P', "Start New Episode?"}, {'E', "Verify END OF CLASS"}};
  std::unique_ptr<frmClassAct> form_;
};

struct ButtonState {
  const char* name;
  const char* keys;
  const char* available;
};
const ButtonState kButtonStates[] = {
    {"nothing entered", "", "&End Class "},
    {"a description", "Act\t", ""},
    {"an activity", "Act\t ", "E&PISODE &SEGMENT &Q/A &End Class "},
    {"an activity, its description taken back", "A\t {Backtab}{Backspace}", ""},
    {"a lecture", "Act\tl ", "&About E&PISODE &SEGMENT &Q/A &End Class "},
    {"a second segment", "Act\t {Alt+S}", "Sg. &to Ep. "},
    {"its activity", "Act\t {Alt+S} ", "E&PISODE &SEGMENT &Q/A Sg. &to Ep. &End Class "},
    {"a second episode", "Act\t {Alt+P}", "Ep. &to Sg. "},
    {"its activity", "Act\t {Alt+P}B\t ", "E&PISODE &SEGMENT &Q/A Ep. &to Sg. &End Class "},
};

TEST_F(LiveForm, OffersInEachStateItsButtonsAndTheirMnemonics) {
  for (const ButtonState& state : kButtonStates) {
    SCOPED_TRACE(state.name);
    Begin(state.keys);
    std::string available;
    for (const QPushButton* button : AvailableButtons()) {
      available += button->text().toStdString() + " ";
    }
    EXPECT_EQ(available, state.available);

    for (std::size_t i = 0; i < AvailableButtons().size(); ++i) {
      Begin(state.keys);
      QPushButton* button = AvailableButtons().at(i);
      const QSignalSpy clicks(button, &QPushButton::clicked);
      const char letter = QKeySequence::mnemonic(button->text()).toString().back().toLatin1();
      SCOPED_TRACE(letter);
      button->setFocus();
      Keys("\n{Enter}");
      EXPECT_EQ(clicks.count(), 0) << "Enter presses no button";
      Box("txtEpisodeName")->setFocus();
      if (questionOf_.count(letter) && state.keys != std::string()) {
        prompter.Expect(questionOf_.at(letter), Answer::no);
      }
      Keys(std::string("{Alt+") + letter + "}");
      EXPECT_EQ(clicks.count(), 1);
    }
  }
}

TEST_F(LiveForm, TabLeadsFromTheDescriptionToTheButtons) {
  const std::string dividing = "cmdStartNewSg cmdStartNewQASg cmdStartNewEp cmdQuit ";
  const std::string header = "txtSchoolNum txtClassNum txtObservNum txtInitials txtNumStudents ";
  const std::pair<const char*, std::string> ways[] = {
      {"", "cmdQuit "},
      {"Act", "Option0_0 "},
      {"Act\t{Down} ", "Option0_1 " + dividing},
      {"Act\tl ", "Option0_3 Command9 " + dividing},
      {"Act\ts ", "Option0_6 Option3_1 Option4_0 Option5_0 " + dividing},
      {"Act\tsss ", "Option0_13 Option1_0 Combo1 Combo2 Combo3 " + dividing},
      {"Act\t{End} ", "Option0_16 Option2_0 " + dividing},
  };
  for (const auto& [keys, way] : ways) {
    SCOPED_TRACE(keys);
    Begin(keys);
    Box("txtEpisodeName")->setFocus();
    std::string there;
    std::string back;
    do {
      Keys("\t");
      there += FocusedName() + " ";
    } while (FocusedName() != "txtEpisodeName" && there.size() < 1000);
    EXPECT_EQ(there, way + header + "txtEpisodeName ");
    do {
      back.insert(0, FocusedName() + " ");
      Keys("{Backtab}");
    } while (FocusedName() != "txtEpisodeName" && back.size() < 1000);
    EXPECT_EQ(back, there);
  }
}

TEST_F(LiveForm, MovesAmongTheActivitiesWithoutChoosing) {
  struct Move {
    int from;
    const char* keys;
    int to;
  };
  const Move moves[] = {{0, "{Down}", 1},  {12, "{Right}", 13}, {16, "{Down}", 0}, {0, "{Up}", 16},
                        {5, "{Left}", 4},  {9, "{Home}", 0},    {3, "{End}", 16},  {0, "s", 6},
                        {0, "ss", 8},      {0, "Sss", 13},      {14, "s", 16},     {16, "s", 6},
                        {12, "t", 12},     {3, "q", 4},         {3, "x", 3},       {3, "4", 3},
                        {8, "{Return}", 8}};
  Begin("Act\t");
  for (const Move& move : moves) {
    SCOPED_TRACE(std::to_string(move.from) + " " + move.keys);
    Find(*form_, ("Option0_" + std::to_string(move.from)).c_str())->setFocus();
    Keys(move.keys);
    EXPECT_EQ(FocusedName(), "Option0_" + std::to_string(move.to));
    EXPECT_EQ(Checked(), "");
  }
  EXPECT_EQ(NewLogText(), "");
  EXPECT_EQ(Text("txtEpisodeName"), "Act");
}

TEST_F(LiveForm, SpaceChoosesAndACancelledRevisionGoesBack) {
  Begin("Act\tr");
  Keys(" ");
  EXPECT_EQ(Checked(), "Option0_7 ");
  EXPECT_NE(NewLogText().find("Ep. 1 Sg. 1 started at 09:00:00"), std::string::npos);
  Keys(" ");
  EXPECT_EQ(Checked(), "Option0_7 ") << "chosen already: nothing to ask";
  prompter.Expect("Revise activity # ?", Answer::cancel);
  Keys("g ");
  EXPECT_EQ(Checked(), "Option0_7 ");
  EXPECT_EQ(FocusedName(), "Option0_7");
  EXPECT_EQ(NewLogText(), "");
  prompter.Expect("Revise activity # ?", Answer::ok);
  Keys("s ");
  EXPECT_EQ(Checked(), "Option0_8 ");
  EXPECT_EQ(NewLogText(), "REVISED ACTIVITY # for Ep. 1 Sg. 1 :  9 09:00:00\n");
}

TEST_F(LiveForm, TakesTheListsOfSeatworkToTheLetter) {
  struct Typed {
    const char* keys;
    const char* shown;
    int code;
  };
  const Typed typed[] = {
      {"", "no coding", -1},
      {"{Down}", "Textbook", 0},
      {"{Down}{Down}", "worksheet", 1},
      {"homework", "homework", 2},
      {"textbook", "textbook", -1},
      {"hom", "hom", -1},
      {"other{Backspace}", "othe", -1},
      {"workbook, p. 3", "workbook, p. 3", -1},
  };
  for (const Typed& source : typed) {
    SCOPED_TRACE(source.keys);
    Begin("Act\tsss \t\t");
    ASSERT_EQ(FocusedName(), "Combo1");
    Keys(std::string(source.keys) + "\n\t");
    EXPECT_EQ(FocusedName(), "Combo2");
    EXPECT_EQ(Find<QComboBox>(*form_, "Combo1")->currentText().toStdString(), source.shown);
    prompter.Expect("Start New Segment?", Answer::yes);
    Keys("{Alt+S}");
    EXPECT_EQ(program.Episodes[0].segments[0].src, source.code);
  }
}

TEST_F(LiveForm, LogsTheDescriptionWhenItIsLeftChanged) {
  const std::string changed = "REVISED EP.Description: Act two 09:00:00\n";
  const std::pair<const char*, std::string> ways[] = {
      {"{End} two\t", changed},
      {"{End} two{Backtab}", changed},
      {"{End} two\n{Down}{Up}", ""},
      {"\t{Backtab}\t", ""},
      {"{End} two{Backspace}{Backspace}{Backspace}{Backspace}\t", ""},
      {"{End} two\t{Backtab}\t", changed},
      {"{End} two{Alt+E}", changed},
  };
  for (const auto& [keys, logged] : ways) {
    SCOPED_TRACE(keys);
    Begin("Act\t {Backtab}");
    if (std::string(keys).ends_with("{Alt+E}")) {
      prompter.Expect("Verify END OF CLASS", Answer::no, [&, &expected = logged] {
        EXPECT_EQ(NewLogText(), expected) << "before anything is asked";
      });
      Keys(keys);
      continue;
    }
    Keys(keys);
    EXPECT_EQ(NewLogText(), logged);
  }
  Begin("Act\t {Backtab}{End} two");
  {
    QWidget other;
    Activate(other);
    EXPECT_EQ(NewLogText(), "") << "another window in front is no change of mind";
  }
  Activate(*form_);
  Keys("!\t");
  EXPECT_EQ(NewLogText(), "REVISED EP.Description: Act two! 09:00:00\n");
}

TEST_F(LiveForm, ShowsTheActivitiesFromTheFirstKeyInTheDescription) {
  const std::pair<const char*, bool> keys[] = {
      {"", false}, {"\t{Backtab}", false}, {"\n", false}, {"{Alt+X}", false}, {"A", true}};
  for (const auto& [pressed, visible] : keys) {
    SCOPED_TRACE(pressed);
    Begin(pressed);
    EXPECT_EQ(Find(*form_, "Option0_0")->isVisible(), visible);
    EXPECT_EQ(Find(*form_, "Label4")->isVisible(), visible);
    EXPECT_EQ(Find(*form_, "Frame4")->isVisible(), visible);
    EXPECT_EQ(Find(*form_, "cmdQuit")->isEnabled(), !visible);
  }
}

TEST_F(LiveForm, MovesBetweenTheHeaderBoxesWithTheKeys) {
  const std::vector<std::string> round = {"txtSchoolNum", "txtClassNum", "txtObservNum",
                                          "txtInitials", "txtNumStudents"};
  Begin("");
  Box("txtSchoolNum")->setFocus();
  for (const char* key : {"\n", "{Down}", "{Enter}"}) {
    for (std::size_t i = 1; i <= 5; ++i) {
      Keys(key);
      EXPECT_EQ(FocusedName(), round[i % 5]);
      EXPECT_EQ(Box(round[i % 5].c_str())->cursorPosition(), Text(round[i % 5].c_str()).size());
    }
  }
  for (std::size_t i = 5; i-- > 0;) {
    Keys("{Up}");
    EXPECT_EQ(FocusedName(), round[i]);
  }
  EXPECT_EQ(NewLogText(), "");
}

TEST_F(LiveForm, KeepsTheFocusInAHeaderBoxThatIsNoNumber) {
  const std::function<void()> ways[] = {
      [] { Keys("\n"); },
      [] { Keys("{Up}"); },
      [] { Keys("\t"); },
      [] { Keys("{Alt+E}"); },
      [this] { Click(Box("txtEpisodeName")); },
      [this] { QTest::mousePress(Find(*form_, "Option0_0"), Qt::LeftButton); },
      [this] { QTest::mousePress(Find(*form_, "cmdQuit"), Qt::LeftButton); }};
  for (const char* name : {"txtSchoolNum", "txtClassNum", "txtObservNum", "txtNumStudents"}) {
    for (std::size_t way = 0; way < std::size(ways); ++way) {
      SCOPED_TRACE(std::string(name) + " " + std::to_string(way));
      OpenLog();
      Begin("Act\tr ");
      Box(name)->setFocus();
      Box(name)->selectAll();
      Keys("1x");
      ways[way]();
      EXPECT_EQ(FocusedName(), name);
      EXPECT_EQ(Text(name), "");
      EXPECT_EQ(Checked(), "Option0_7 ");
      EXPECT_EQ(NewLogText(), "");
      Keys("6");
      EXPECT_EQ(Text(name), "6") << "the box really has the focus";
      EXPECT_EQ(log.File().Path(), folder / "BAK/7/12/7-12-3.bak");
    }
  }
}

TEST_F(LiveForm, RenamesTheLogOrLeavesItAsTheObserverSays) {
  struct Change {
    const char* box;
    orvex::Answer answer;
    const char* focus;
    const char* text;
    const char* log;
  };
  const Change changes[] = {
      {"txtClassNum", Answer::cancel, "txtClassNum", "", "7/12/7-12-3.bak"},
      {"txtSchoolNum", Answer::cancel, "txtSchoolNum", "", "7/12/7-12-3.bak"},
      {"txtObservNum", Answer::cancel, "txtInitials", "8", "7/12/7-12-3.bak"},
      {"txtClassNum", Answer::ok, "txtObservNum", "8", "7/8/7-8-3.bak"},
  };
  for (const Change& change : changes) {
    SCOPED_TRACE(change.box);
    OpenLog();
    Begin("Act\t ");
    PutFile(folder / "BAK/8/12/8-12-3.bak", "old");
    PutFile(folder / "BAK/7/8/7-8-3.bak", "old");
    PutFile(folder / "BAK/7/12/7-12-8.bak", "old");
    Box(change.box)->setFocus();
    Box(change.box)->selectAll();
    Keys("8");
    const std::string name = Find<QLabel>(*form_, "lblClassID")->text().mid(10).toStdString();
    prompter.Expect(name + ".bak already exists. Overwrite it?", change.answer);
    Keys("\n");
    EXPECT_EQ(FocusedName(), change.focus);
    EXPECT_EQ(Text(change.box), change.text);
    EXPECT_EQ(log.File().Path(), folder / (std::string("BAK/") + change.log));
  }
  OpenLog();
  Begin("Act\t ");
  Box("txtClassNum")->setFocus();
  Keys("{Backspace}{Backspace}\n");
  EXPECT_EQ(FocusedName(), "txtClassNum") << "a file name needs its number";
  EXPECT_EQ(Text("txtClassNum"), "12");
}

TEST_F(LiveForm, ClosesOnlyBeforeTheFirstKeyOrAfterTheEnd) {
  Begin("");
  EXPECT_TRUE(form_->close());
  Begin("Act\t");
  EXPECT_FALSE(form_->close()) << "no activity: the class cannot end yet";
  Begin("Act\t ");
  prompter.Expect("Verify END OF CLASS", Answer::no);
  EXPECT_FALSE(form_->close());
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(NewLogText(), "");
  prompter.Expect("Verify END OF CLASS", Answer::yes);
  form_->close();
  EXPECT_EQ(screens.Take(), (std::vector<std::string>{"close aboutText", "end"}));
  EXPECT_TRUE(form_->close());
}

TEST_F(LiveForm, PutsTheFocusWhereTheObserverGoesOn) {
  const std::pair<const char*, const char*> ways[] = {
      {"Act\tg {Alt+S}", "Option0_10"},
      {"Act\tg {Alt+P}", "txtEpisodeName"},
  };
  for (const auto& [keys, focus] : ways) {
    Begin(keys);
    EXPECT_EQ(FocusedName(), focus);
  }
  Keys("Next\tr {Alt+T}");
  EXPECT_EQ(FocusedName(), "txtEpisodeName");
  EXPECT_EQ(Text("txtEpisodeName"), "Act");
  EXPECT_EQ(Find(*form_, "Option0_0")->isVisible(), true);
}

}  // namespace
}  // namespace orvex
