// The two forms for observing a class: what the keyboard and the mouse do on them.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>

#include "model/letter_meanings.h"
#include "support/desk.h"
#include "ui/forms/frmClassAct.h"
#include "ui/forms/frmEnterQA.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

const std::string kEntry = "Act\tr {Alt+S}q ";

class ClassForms : public testing::Test, protected Desk {
 protected:
  /// Starts a new class and presses `keys` on the live form, then `entryKeys` on the question entry
  /// if that has opened. All questions are answered with Yes.
  QWidget& Begin(const std::string& keys, const std::string& entryKeys = "") {
    prompter.cancelsDialogs = true;
    entry_.reset();
    live_.reset();
    program.ClassStored = false;
    OpenLog();
    logRead = 0;
    live_ = std::make_unique<frmClassAct>(services);
    PressIn(*live_, keys);
    if (keys.ends_with("q ")) {
      entry_ = std::make_unique<frmEnterQA>(services, live_->Live(), live_->Clocks());
      PressIn(*entry_, entryKeys);
    }
    TickForms();
    Settle();
    NewLogText();
    screens.Take();
    return Form();
  }
  void PressIn(QWidget& form, const std::string& keys) {
    for (const auto& [key, question] : kQuestions) {
      if (keys.find(key) != std::string::npos) prompter.Expect(question, Answer::yes);
    }
    Activate(form);
    Keys(keys);
  }

  QWidget& Form() const {
    return entry_ ? static_cast<QWidget&>(*entry_) : static_cast<QWidget&>(*live_);
  }
  QLineEdit* Box(const std::string& name) const { return Find<QLineEdit>(Form(), name.c_str()); }
  std::string Text(const std::string& box) const { return Box(box)->text().toStdString(); }
  void Revise(const std::string& box, const std::string& keys) {
    Box(box)->setFocus();
    Box(box)->selectAll();
    Keys(keys);
  }
  /// Waits for a pending estimate of a question/answer segment and takes it.
  void TakeEstimate() {
    for (; live_->Live().Running().schedule.OfftaskPending() == 0; clock.Advance(1)) {
      live_->Live().Estimates().Tick();
    }
    TickForms();
    prompter.ExpectEstimate({.offtask = "5", .students = "25"});
    Keys("{Alt+O}");
  }
  void UseAnotherWindow() {
    {
      QWidget other;
      Activate(other);
    }
    Activate(Form());
  }
  std::vector<questionInfo>& Questions() { return program.Episodes.back().questions; }

  std::unique_ptr<frmClassAct> live_;
  std::unique_ptr<frmEnterQA> entry_;
};

TEST_F(ClassForms, OfferInEachStateTheirButtonsAndMnemonics) {
  const std::string always = "&FIELDNOTE|&Clock";
  const std::string divide = "E&PISODE|&SEGMENT|&Q/A|";
  const std::string rest = "&Review|" + always + "|&Matrices|&End Class";
  const std::tuple<std::string, const char*, std::string> states[] = {
      {"", "", always + "|&End Class"},
      {"Act", "", always},
      {"Act\t {Backtab}", "", divide + rest},
      {"Act\t {Backtab}{Backspace}", "", always},
      {"Act\tl ", "", "&About|" + divide + rest},
      {"Act\t {Alt+S}", "", "Sg. &to Ep.|" + always},
      {"Act\t {Alt+S} ", "", divide + "Sg. &to Ep.|" + rest},
      {"Act\t {Alt+P}", "", "Ep. &to Sg.|" + always},
      {"Act\t {Alt+P}B\t ", "", divide + "Ep. &to Sg.|" + rest},
      {kEntry, "", "&Abort|&Clock"},
      {kEntry, "Why?\n", "Nor&mal|&Next Q|Scr&ap"},
      {kEntry, "Why?\n{Alt+A}", "&Abort|&Clock"},
      {kEntry, "Why?\nt\nn\n",
       "&Review|Proo&f|&Matrices|&Ditto|&SEGMENT|E&PISODE|&Last|&Clock|&End Class"},
      {kEntry, "Why?\nt\nn\nAnd?\n", "Nor&mal|&Ditto|&Next Q|Scr&ap"},
      {kEntry, "Why?\nt\nn\nAnd?\n{Up}\n",
       "&Review|Proo&f|Nor&mal|&Ditto|&Next Q|&SEGMENT|Scr&ap|&Last|&Clock|&End Class"},
      {kEntry, "Why?\nt\nn\n{Alt+D}",
       "&Review|Proo&f|&Matrices|&Ditto|Reading a|&SEGMENT|E&PISODE|&Last|&Clock|&End Class"},
      {kEntry, "Why?\nt\nn\n{Alt+L}", "&Abort|&Clock"},
      {kEntry, "Why?\nt\nn\n{Alt+P}", "&Yes|&No"},
  };
  for (const auto& [keys, entryKeys, captions] : states) {
    SCOPED_TRACE(keys + entryKeys);
    const auto open = [&, &on = keys, &in = entryKeys]() -> QWidget& { return Begin(on, in); };
    EXPECT_EQ(CaptionsOf(open()), captions);
    TryButtons(prompter, open, !keys.empty());
  }
}

TEST_F(ClassForms, ASecondClickOnTheConversionWaitsForItsCaption) {
  Begin("Act\t {Alt+S} ");
  auto* convert = Find<QAbstractButton>(*live_, "cmdBailout");
  const auto click = [this, convert] {
    convert->click();
    return convert->text().toStdString() + std::to_string(program.Episodes.size());
  };
  EXPECT_EQ(click(), "2");
  EXPECT_EQ(click(), "2");
  TickForms();
  EXPECT_EQ(convert->text().toStdString(), "Ep. &to Sg.");
  EXPECT_EQ(click(), "1");
}

TEST_F(ClassForms, UndoIsFirstTheBoxesOwn) {
  Begin(kEntry, "Why?\nt\nn\nAn{Alt+L}");
  EXPECT_EQ(Box("txtQuestion")->placeholderText().toStdString(), "Ctrl+Z brings question 1 back");
  Keys("Ho{Ctrl+Z}");
  EXPECT_EQ(Text("txtQuestion") + std::to_string(Questions().size()), "0");
  Keys("{Ctrl+Z}");
  EXPECT_EQ(Text("txtQuestion") + std::to_string(Questions().size()), "An1");
  Keys("{Ctrl+Shift+Z}");
  EXPECT_EQ(Text("txtQuestion") + std::to_string(Questions().size()), "0");
  Keys("One\ns{Alt+A}{Ctrl+Z}");
  EXPECT_EQ(Text("txtQuestion") + Text("Text1"), "OneS") << "also where the text has stayed";
}

TEST_F(ClassForms, TabLeadsFromTheDescriptionRoundTheLiveForm) {
  const std::string divide =
      "cmdStartNewEp cmdStartNewSg cmdStartNewQASg cmdReview cmdFieldNote Command1 Command7 "
      "cmdQuit ";
  const std::pair<const char*, std::string> ways[] = {
      {"", "cmdFieldNote Command1 cmdQuit "},
      {"Act", "Option0_0 cmdFieldNote Command1 "},
      {"Act\tl ", "Option0_3 Command9 " + divide},
      {"Act\ts ", "Option0_6 Option3_1 Option4_0 Option5_0 " + divide},
      {"Act\tsss ", "Option0_13 Option1_0 Combo1 Combo2 Combo3 " + divide},
      {"Act\t{End} ", "Option0_16 Option2_0 " + divide},
  };
  for (const auto& [keys, way] : ways) {
    Begin(keys);
    Box("txtEpisodeName")->setFocus();
    std::string there;
    do {
      Keys("\t");
      there += FocusedName() + " ";
    } while (FocusedName() != "txtEpisodeName" && there.size() < 1000);
    EXPECT_EQ(there, way +
                         "txtSchoolNum txtClassNum txtObservNum txtInitials txtNumStudents "
                         "txtEpisodeName ");
  }
}

TEST_F(ClassForms, KeysMoveAmongTheActivitiesAndOnlySpaceChooses) {
  const std::tuple<int, const char*, int> moves[] = {
      {0, "{Down}", 1}, {12, "{Right}", 13}, {16, "{Down}", 0}, {0, "{Up}", 16}, {5, "{Left}", 4},
      {9, "{Home}", 0}, {3, "{End}", 16},    {0, "s", 6},       {0, "Sss", 13},  {14, "s", 16},
      {16, "s", 6},     {12, "t", 12},       {3, "q", 4},       {3, "x", 3},     {8, "\n", 8}};
  const auto option = [this](int i) {
    return Find<QRadioButton>(*live_, ("Option0_" + std::to_string(i)).c_str());
  };
  Begin("Act\t");
  for (const auto& [from, keys, to] : moves) {
    SCOPED_TRACE(std::to_string(from) + " " + keys);
    option(from)->setFocus();
    Keys(keys);
    EXPECT_EQ(FocusedName(), "Option0_" + std::to_string(to));
  }
  EXPECT_EQ(live_->Live().Running().ChosenActivity(), 0);

  const auto type = [](const QString& letter, quint64 at) {
    QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, letter);
    key.setTimestamp(at);
    QApplication::sendEvent(QApplication::focusWidget(), &key);
  };
  // Letter by letter, with the milliseconds between them: slow letters begin anew.
  const std::tuple<const char*, int, int> spelled[] = {
      {"su", 900, 13}, {"su/m", 900, 14}, {"su/x", 900, 13}, {"st", 1100, 12},
      {"17", 900, 16}, {"17", 1100, 6},   {"18", 900, 7},    {"0", 900, 0}};
  quint64 now = 5000;
  for (const auto& [letters, pause, to] : spelled) {
    SCOPED_TRACE(letters);
    option(0)->setFocus();
    now += 5000;
    for (const QChar letter : QString::fromLatin1(letters)) type(letter, now += quint64(pause));
    EXPECT_EQ(FocusedName(), "Option0_" + std::to_string(to));
  }
  EXPECT_EQ(live_->Live().Running().ChosenActivity(), 0);
  Begin("Act\tr  ");  // the second Space has nothing to ask
  prompter.Expect("Revise activity # ?", Answer::cancel);
  Keys("g ");
  EXPECT_TRUE(option(7)->isChecked());
  EXPECT_EQ(FocusedName(), "Option0_7");
  // The running one stands out: its colours are those of a selected row, where it is painted.
  for (const auto& [i, background] : {std::pair{7, QPalette::Highlight}, {6, QPalette::Window}}) {
    const QImage image = option(i)->grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() - 1, 1), option(i)->palette().color(background)) << i;
  }
}

TEST_F(ClassForms, TakeTheListsOfSeatworkToTheLetter) {
  const std::tuple<const char*, const char*, int> typed[] = {
      {"", "no coding", -1}, {"{Down}", "Textbook", 0},    {"homework", "homework", 2},
      {"hom", "hom", -1},    {"textbook", "textbook", -1}, {"other?{Backspace}", "other", 3}};
  for (const auto& [keys, shown, code] : typed) {
    Begin("Act\tsss \t\t");
    Keys(std::string(keys) + "\n\t");
    EXPECT_EQ(Find<QComboBox>(*live_, "Combo1")->currentText().toStdString(), shown);
    prompter.Expect("Start New Segment?", Answer::yes);
    Keys("{Alt+S}");
    EXPECT_EQ(program.Episodes[0].segments[0].src, code) << keys;
  }
}

TEST_F(ClassForms, LogTheDescriptionWhenItIsLeftChanged) {
  const std::string changed = "REVISED EP.Description: Act two 09:00:00\n";
  const std::pair<const char*, std::string> ways[] = {
      {"{End} two\t", changed},
      {"{End} two{Backtab}", changed},
      {"{End} two\t{Backtab}\t", changed},
      {"{End} two\n{Down}{Up}", ""},
      {"{End}!{Backspace}\t", ""},
  };
  for (const auto& [keys, text] : ways) {
    Begin("Act\t {Backtab}");
    Keys(keys);
    EXPECT_EQ(NewLogText(), text) << keys;
  }
  Begin("Act\t {Backtab}{End} two");
  {
    QWidget other;
    Activate(other);
    EXPECT_EQ(NewLogText(), "") << "another window in front is no change of mind";
  }
  Activate(*live_);
  prompter.Expect("Start New Segment?", Answer::no,
                  [&] { EXPECT_EQ(NewLogText(), changed) << "before anything is asked"; });
  Keys("{Alt+S}");
}

TEST_F(ClassForms, KeepTheFocusInAHeaderBoxThatIsNoNumber) {
  const auto click = [this](const char* name) { Click(Find(*live_, name)); };
  const std::function<void()> ways[] = {
      [] { Keys("\n"); },      [] { Keys("{Up}"); },      [] { Keys("\t"); },
      [] { Keys("{Alt+E}"); }, [&] { click("cmdQuit"); }, [&] { click("Option0_0"); },
  };
  Begin("Act\tr ");
  for (const char* name : {"txtSchoolNum", "txtClassNum", "txtObservNum", "txtNumStudents"}) {
    const std::string before = Text(name);
    for (const auto& leave : ways) {
      SCOPED_TRACE(name);
      Revise(name, "1x");
      leave();
      EXPECT_EQ(Text(name), "");
      EXPECT_EQ(NewLogText(), "");
      Keys(before);
      EXPECT_EQ(Text(name), before) << "the box really has the focus";
    }
  }
}

TEST_F(ClassForms, LetNoSecondPressGetPastABoxThatIsNoNumber) {
  Begin("Act\tsss ");
  auto* source = Find<QComboBox>(*live_, "Combo1");
  for (QWidget* pressed : {static_cast<QWidget*>(Find(*live_, "cmdQuit")),
                           static_cast<QWidget*>(source), source->findChild<QWidget*>()}) {
    Revise("txtSchoolNum", "1x");
    QTest::mouseDClick(pressed, Qt::LeftButton);
    EXPECT_EQ(FocusedName(), "txtSchoolNum");
    EXPECT_FALSE(source->view()->isVisible());
  }
}

TEST_F(ClassForms, CloseOnlyBeforeTheFirstKeyOrAfterTheEnd) {
  EXPECT_TRUE(Begin("").close());
  EXPECT_FALSE(Begin("Act\t").close()) << "no activity: the class cannot end yet";
  EXPECT_FALSE(Begin(kEntry, "Why?\n").close());
  EXPECT_EQ(Text("txtQuestion"), "Why?") << "what is being coded stays";
  for (const auto& [keys, entryKeys] :
       {std::pair{std::string("Act\t "), ""}, {kEntry, "A\nt\nn\n"}}) {
    QWidget& form = Begin(keys, entryKeys);
    prompter.Expect("Verify END OF CLASS", Answer::no);
    EXPECT_FALSE(form.close());
    prompter.Expect("Verify END OF CLASS", Answer::yes);
    prompter.Expect("Have you finished Matrices?", Answer::yes);
    form.close();
    EXPECT_EQ(screens.Take().back(), "end");
    std::filesystem::remove_all(folder / "EPS");  // the next class will have the same numbers
  }
  Begin("Act\t ");
  Revise("txtClassNum", "x");
  EXPECT_FALSE(live_->close()) << "a box that cannot be left keeps the window";
}

TEST_F(ClassForms, ACodeIsSelectedHoweverItIsComeTo) {
  Begin(kEntry, "Why{Up}?{Enter}s{Down}y{Enter}a{Down}t\nh\nAnna\no\n");
  const std::string boxes[] = {"Text9", "Text8", "Text6", "Text5",
                               "Text4", "Text3", "Text2", "Text1"};
  for (const std::string& box : boxes) {
    EXPECT_EQ(FocusedName(), box);
    EXPECT_EQ(Box(box)->selectedText().toStdString(), box == "Text6" ? "" : Text(box));
    Keys("{Up}");
  }
  Keys("{Up}!{Alt+S}");
  EXPECT_EQ(Text("txtQuestion"), "Why?!") << "a mnemonic that is not offered types nothing";
  Keys("\t");
  EXPECT_EQ(Box("Text1")->selectedText().toStdString(), "S");
  Click(Box("Text6"));
  Keys("bel");
  EXPECT_EQ(Text("Text6"), "Annabel");

  Begin(kEntry, "Why?\n\n\n\n\n");
  const std::pair<const char*, std::function<void()>> roads[] = {
      {"an estimate", [&] { TakeEstimate(); }},
      {"another window", [&] { UseAnotherWindow(); }},
      {"a click in it", [&] { Click(Box("Text5")); }},
      {"Tab", [] { Keys("\t{Backtab}"); }},
  };
  for (const auto& [road, lead] : roads) {
    Keys("r");
    lead();
    EXPECT_EQ(FocusedName(), "Text5") << road;
    EXPECT_EQ(Box("Text5")->selectedText().toStdString(), "r") << road;
  }
}

TEST_F(ClassForms, AGroupWithoutASelectionIsEnteredAtItsFirstButton) {
  Begin("Act\tsss \t{Down} {Alt+S} \t");
  EXPECT_EQ(FocusedName(), "Option1_0");
  Keys("{Down}\t{Backtab}");
  EXPECT_EQ(FocusedName(), "Option1_0") << "where the focus has been is no selection";
  Keys("{Down} {Up}\t{Backtab}");
  EXPECT_EQ(FocusedName(), "Option1_1") << "the one that is selected";
  prompter.Expect("Start New Segment?", Answer::yes);
  Keys("{Alt+S}{Down}\t");
  Box("txtEpisodeName")->setFocus();
  Keys("\t");
  EXPECT_EQ(FocusedName(), "Option0_0");
}

TEST_F(ClassForms, TheLineOfMeaningsFollowsTheFocusUntilItIsSwitchedOff) {
  const auto line = [this] { return Find<QLabel>(Form(), "lblMeanings"); };
  Begin(kEntry, "Why?\n");
  for (const Dimension dimension : kDimensions) {  // those of a teacher question
    EXPECT_EQ(line()->text().toStdString(), LetterMeanings(dimension));
    for (const char letter : SchemeOf(dimension).letters) {
      EXPECT_NE((" " + line()->text().toStdString()).find({' ', letter, ' '}), std::string::npos)
          << letter << " of " << SchemeOf(dimension).label;
    }
    Keys(dimension == Dimension::respondName ? "Anna\n" : "\n");
    if (dimension == Dimension::onePartOfMulti) break;
  }
  Keys("{F4}");
  EXPECT_TRUE(line()->isHidden());
  Begin(kEntry, "Why?\n");
  EXPECT_TRUE(line()->isHidden()) << "the choice is remembered";
  Keys("{F4}");
  EXPECT_FALSE(line()->isHidden());
}

TEST_F(ClassForms, TheFocusIsWhereItWasAfterWhatHasChangedNothing) {
  const auto expectAll = [this] {
    for (const auto& [key, question] : kQuestions) prompter.Expect(question, Answer::no);
    prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
  };
  Begin(kEntry, "Why?\nt\nn\nHow");
  expectAll();
  Keys("{Alt+E}{Alt+P}{Alt+S}{Alt+F}{Alt+C}{Alt+R}?");
  EXPECT_EQ(Text("txtQuestion"), "How?");

  Begin("Act\tl {Down}");
  Questions().emplace_back().SetValue("Why?", {"T", "N"}, 1, 1);
  live_->Refresh();
  expectAll();
  for (const char* key :
       {"{Alt+E}", "{Alt+P}", "{Alt+S}", "{F7}", "{Alt+C}", "{Alt+R}", "{Alt+M}"}) {
    Keys(key);
    EXPECT_EQ(FocusedName(), "Option0_4") << key;
  }
  Find(*live_, "Command7")->setFocus(Qt::TabFocusReason);
  Keys(" ");
  EXPECT_EQ(FocusedName(), "Command7") << "whoever had gone to the button is still there";
}

TEST_F(ClassForms, TheNotesHaveTheirKeyAlsoBesideProof) {
  Begin("Act\tl ");
  Questions().emplace_back().SetValue("Why?", {"T", "N"}, 1, 1);
  live_->Refresh();
  EXPECT_TRUE(Find(*live_, "cmdProof")->isVisible());
  prompter.ExpectNotes("Quiet");
  Keys("{Alt+F}");
  EXPECT_EQ(live_->Live().Running().fieldNotes, "Quiet");
  EXPECT_EQ(FocusedName(), "Option0_3");
}

TEST_F(ClassForms, OnlyAnAnswerLeadsOnFromTheReviewQuestion) {
  const std::pair<const char*, const char*> answers[] = {
      {" ", "Y"}, {"y", "Y"}, {"N", "N"}, {"{Alt+N}", "N"}, {"\t ", "N"}, {"\t{Backtab} ", "Y"}};
  for (const auto& [keys, answer] : answers) {
    SCOPED_TRACE(keys);
    Begin(kEntry, "Why?\nt\nn\n{Alt+P}");
    Keys("\n{Enter}{Down}{Up}{Esc}x{Ctrl+N}");
    EXPECT_FALSE(entry_->close());
    EXPECT_EQ(FocusedName(), "Command11_0");
    EXPECT_EQ(program.Episodes.size(), 1U);
    EXPECT_EQ(Questions().size(), 1U);
    Keys(keys);
    EXPECT_EQ(program.Episodes[0].bReview, answer);
    EXPECT_EQ(screens.Take().back(), "close questionEntry");
  }
}

}  // namespace
}  // namespace orvex
