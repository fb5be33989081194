#include "ui/frmClassAct.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include "support/desk.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

class LiveForm : public testing::Test, protected Desk {
 protected:
  /// A new class, in which the observer has pressed `keys` and said Yes to what was asked.
  QWidget& Begin(const std::string& keys) {
    form_.reset();
    OpenLog();
    logRead = 0;
    for (const auto& [key, question] : kQuestions) {
      if (keys.find(key) != std::string::npos) prompter.Expect(question, Answer::yes);
    }
    form_ = std::make_unique<frmClassAct>(services);
    Activate(*form_);
    Keys(keys);
    TickForms();
    Settle();
    NewLogText();
    return *form_;
  }

  QLineEdit* Box(const std::string& name) const { return Find<QLineEdit>(*form_, name.c_str()); }
  std::string Text(const std::string& box) const { return Box(box)->text().toStdString(); }
  void Revise(const std::string& box, const std::string& keys) {
    Box(box)->setFocus();
    Box(box)->selectAll();
    Keys(keys);
  }
  /// The number of the selected activity button; -1 for none.
  int Selected() const {
    for (int i = 0; i < kActivityCount; ++i) {
      const std::string name = "Option0_" + std::to_string(i);
      if (Find<QRadioButton>(*form_, name.c_str())->isChecked()) return i;
    }
    return -1;
  }

  std::unique_ptr<frmClassAct> form_;
};

TEST_F(LiveForm, OffersInEachStateItsButtonsAndTheirMnemonics) {
  const std::pair<const char*, const char*> states[] = {
      {"", "&End Class"},
      {"Act", ""},
      {"Act\t {Backtab}", "E&PISODE|&SEGMENT|&Q/A|&End Class"},
      {"Act\t {Backtab}{Backspace}", ""},
      {"Act\tl ", "&About|E&PISODE|&SEGMENT|&Q/A|&End Class"},
      {"Act\t {Alt+S}", "Sg. &to Ep."},
      {"Act\t {Alt+S} ", "E&PISODE|&SEGMENT|&Q/A|Sg. &to Ep.|&End Class"},
      {"Act\t {Alt+P}", "Ep. &to Sg."},
      {"Act\t {Alt+P}B\t ", "E&PISODE|&SEGMENT|&Q/A|Ep. &to Sg.|&End Class"},
  };
  for (const auto& [keys, captions] : states) {
    SCOPED_TRACE(keys);
    EXPECT_EQ(CaptionsOf(Begin(keys)), captions);
    TryButtons(
        prompter, [&, &state = keys]() -> QWidget& { return Begin(state); }, *keys != '\0');
  }
}

TEST_F(LiveForm, TabLeadsFromTheDescriptionToTheButtons) {
  const std::string divide = "cmdStartNewEp cmdStartNewSg cmdStartNewQASg cmdQuit ";
  const std::string header = "txtSchoolNum txtClassNum txtObservNum txtInitials txtNumStudents ";
  const std::pair<const char*, std::string> ways[] = {
      {"", "cmdQuit "},
      {"Act", "Option0_0 "},
      {"Act\t{Down} ", "Option0_1 " + divide},
      {"Act\tl ", "Option0_3 Command9 " + divide},
      {"Act\ts ", "Option0_6 Option3_1 Option4_0 Option5_0 " + divide},
      {"Act\tsss ", "Option0_13 Option1_0 Combo1 Combo2 Combo3 " + divide},
      {"Act\t{End} ", "Option0_16 Option2_0 " + divide},
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
  const std::tuple<int, const char*, int> moves[] = {
      {0, "{Down}", 1}, {12, "{Right}", 13}, {16, "{Down}", 0}, {0, "{Up}", 16},
      {5, "{Left}", 4}, {9, "{Home}", 0},    {3, "{End}", 16},  {0, "s", 6},
      {0, "ss", 8},     {0, "Sss", 13},      {14, "s", 16},     {16, "s", 6},
      {12, "t", 12},    {3, "q", 4},         {3, "x", 3},       {8, "\n", 8}};
  Begin("Act\t");
  for (const auto& [from, keys, to] : moves) {
    SCOPED_TRACE(std::to_string(from) + " " + keys);
    Find(*form_, ("Option0_" + std::to_string(from)).c_str())->setFocus();
    Keys(keys);
    EXPECT_EQ(FocusedName(), "Option0_" + std::to_string(to));
    EXPECT_EQ(Selected(), -1);
  }
  EXPECT_EQ(NewLogText(), "");
}

TEST_F(LiveForm, SpaceChoosesAndACancelledRevisionGoesBack) {
  Begin("Act\tr  ");
  EXPECT_EQ(Selected(), 7) << "the second Space had nothing to ask";
  prompter.Expect("Revise activity # ?", Answer::cancel);
  Keys("g ");
  EXPECT_EQ(Selected(), 7);
  EXPECT_EQ(FocusedName(), "Option0_7");
  EXPECT_EQ(NewLogText(), "");
  prompter.Expect("Revise activity # ?", Answer::ok);
  Keys("s ");
  EXPECT_EQ(Selected(), 8);
  EXPECT_EQ(NewLogText(), "REVISED ACTIVITY # for Ep. 1 Sg. 1 :  9 09:00:00\n");
}

TEST_F(LiveForm, TakesTheListsOfSeatworkToTheLetter) {
  const std::tuple<const char*, const char*, int> typed[] = {{"", "no coding", -1},
                                                             {"{Down}", "Textbook", 0},
                                                             {"{Down}{Down}", "worksheet", 1},
                                                             {"homework", "homework", 2},
                                                             {"hom", "hom", -1},
                                                             {"textbook", "textbook", -1},
                                                             {"other?{Backspace}", "other", 3}};
  for (const auto& [keys, shown, code] : typed) {
    SCOPED_TRACE(keys);
    Begin("Act\tsss \t\t");
    Keys(keys);
    Keys("\n\t");
    EXPECT_EQ(Find<QComboBox>(*form_, "Combo1")->currentText().toStdString(), shown);
    prompter.Expect("Start New Segment?", Answer::yes);
    Keys("{Alt+S}");
    EXPECT_EQ(program.Episodes[0].segments[0].src, code);
  }
}

TEST_F(LiveForm, ShowsTheActivitiesFromTheFirstKeyInTheDescription) {
  const std::pair<const char*, bool> ways[] = {
      {"", false}, {"\t{Backtab}", false}, {"\n", false}, {"{Alt+X}", false}, {"A", true}};
  for (const auto& [keys, shown] : ways) {
    SCOPED_TRACE(keys);
    Begin(keys);
    for (const char* name : {"Option0_0", "Label1", "Label4", "Frame4", "Frame5"}) {
      EXPECT_EQ(Find(*form_, name)->isVisible(), shown);
    }
    EXPECT_EQ(Find(*form_, "cmdQuit")->isEnabled(), !shown);
  }
}

TEST_F(LiveForm, LogsTheDescriptionWhenItIsLeftChanged) {
  const std::string changed = "REVISED EP.Description: Act two 09:00:00\n";
  const std::pair<const char*, std::string> ways[] = {
      {"{End} two\t", changed},
      {"{End} two{Backtab}", changed},
      {"{End} two\t{Backtab}\t", changed},
      {"{End} two\n{Down}{Up}", ""},
      {"{End}!{Backspace}\t", ""},
  };
  for (const auto& [keys, text] : ways) {
    SCOPED_TRACE(keys);
    Begin("Act\t {Backtab}");
    Keys(keys);
    EXPECT_EQ(NewLogText(), text);
  }
  Begin("Act\t {Backtab}{End} two");
  {
    QWidget other;
    Activate(other);
    EXPECT_EQ(NewLogText(), "") << "another window in front is no change of mind";
  }
  Activate(*form_);
  prompter.Expect("Start New Segment?", Answer::no,
                  [&] { EXPECT_EQ(NewLogText(), changed) << "before anything is asked"; });
  Keys("{Alt+S}");
}

TEST_F(LiveForm, GoesRoundTheHeaderWithTheKeys) {
  Begin("");
  Box("txtSchoolNum")->setFocus();
  std::string round;
  for (const char* key : {"\n", "{Enter}", "{Down}", "\n", "{Down}", "{Up}", "{Up}"}) {
    Keys(key);
    round += FocusedName() + " ";
    EXPECT_EQ(Box(FocusedName())->cursorPosition(), Text(FocusedName()).size());
  }
  EXPECT_EQ(round,
            "txtClassNum txtObservNum txtInitials txtNumStudents txtSchoolNum txtNumStudents "
            "txtInitials ");
}

TEST_F(LiveForm, KeepsTheFocusInAHeaderBoxThatIsNoNumber) {
  const auto click = [this](const char* name) {
    QTest::mouseClick(Find(*form_, name), Qt::LeftButton);
  };
  const std::function<void()> ways[] = {
      [] { Keys("\n"); },      [] { Keys("{Up}"); },      [] { Keys("\t"); },
      [] { Keys("{Alt+E}"); }, [&] { click("cmdQuit"); }, [&] { click("Option0_0"); },
  };
  for (const char* name : {"txtSchoolNum", "txtClassNum", "txtObservNum", "txtNumStudents"}) {
    for (const auto& leave : ways) {
      SCOPED_TRACE(name);
      Begin("Act\tr ");
      Revise(name, "1x");
      leave();
      EXPECT_EQ(FocusedName(), name);
      EXPECT_EQ(Text(name), "");
      EXPECT_EQ(NewLogText(), "");
      EXPECT_EQ(log.File().Path(), folder / "BAK/7/12/7-12-3.bak");
      Keys("6");
      EXPECT_EQ(Text(name), "6") << "the box really has the focus";
    }
  }
  Begin("Act\tr ");
  Revise("txtNumStudents", "26\n");
  Revise("txtNumStudents", "27\n");
  EXPECT_EQ(NewLogText(), "REVISED N= 27 09:00:00\n");
  Revise("txtSchoolNum", "1x{Up}");
  EXPECT_EQ(NewLogText(), "") << "the students' box was not reached, so it was not left either";
}

TEST_F(LiveForm, RenamesTheLogOrLeavesItAsTheObserverSays) {
  struct Change {
    const char* box;
    const char* log;
    orvex::Answer answer;
    const char* focus;
    const char* text;
  };
  const Change changes[] = {
      {"txtClassNum", "7/8/7-8-3.bak", Answer::cancel, "txtClassNum", ""},
      {"txtSchoolNum", "8/12/8-12-3.bak", Answer::cancel, "txtSchoolNum", ""},
      {"txtObservNum", "7/12/7-12-8.bak", Answer::cancel, "txtInitials", "8"},
      {"txtClassNum", "7/8/7-8-3.bak", Answer::ok, "txtObservNum", "8"},
  };
  for (const Change& change : changes) {
    SCOPED_TRACE(change.log);
    Begin("Act\t ");
    const auto target = folder / (std::string("BAK/") + change.log);
    PutFile(target, "an older class");
    prompter.Expect(target.filename().string() + " already exists. Overwrite it?", change.answer);
    Revise(change.box, "8\n");
    EXPECT_EQ(FocusedName(), change.focus);
    EXPECT_EQ(Text(change.box), change.text);
    EXPECT_EQ(log.File().Path() == target, change.answer == Answer::ok);
  }
  Begin("Act\t ");
  Revise("txtClassNum", "{Backspace}\n");
  EXPECT_EQ(FocusedName(), "txtClassNum") << "a file name needs its number";
  EXPECT_EQ(Text("txtClassNum"), "12");
}

TEST_F(LiveForm, ClosesOnlyBeforeTheFirstKeyOrAfterTheEnd) {
  EXPECT_TRUE(Begin("").close());
  EXPECT_FALSE(Begin("Act\t").close()) << "no activity: the class cannot end yet";
  Begin("Act\t ");
  prompter.Expect("Verify END OF CLASS", Answer::no);
  EXPECT_FALSE(form_->close());
  EXPECT_TRUE(form_->isVisible());
  prompter.Expect("Verify END OF CLASS", Answer::yes);
  form_->close();
  EXPECT_EQ(screens.Take().back(), "end");
  EXPECT_TRUE(form_->close());

  program.QuitRequested = false;
  Begin("Act\t ");
  Revise("txtClassNum", "13");
  prompter.Expect("Verify END OF CLASS", Answer::no);
  form_->close();
  EXPECT_EQ(log.File().Path().filename(), "7-13-3.bak") << "the box is left before anything ends";
  Revise("txtClassNum", "x");
  EXPECT_FALSE(form_->close()) << "a box that cannot be left keeps the window";
}

}  // namespace
}  // namespace orvex
