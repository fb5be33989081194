#include "ui/frmEnterQA.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLineEdit>
#include <optional>
#include <set>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "support/desk.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

class EntryForm : public testing::Test, protected Desk {
 protected:
  /// A question/answer segment after one of Reading aloud, in which the observer has pressed
  /// `keys` and said Yes to what was asked.
  QWidget& Open(const std::string& keys = "") {
    form_.reset();
    OpenLog();
    logRead = 0;
    live_.emplace(services);
    clocks_.emplace(services, *live_);
    live_->KeyInDescription();
    live_->TypeDescription("Macbeth");
    live_->ChooseActivity(8);
    live_->StartNewSeg();
    live_->ChooseActivity(kQuestionAnswer);
    for (const auto& [key, question] : kQuestions) {
      if (keys.find(key) != std::string::npos) prompter.Expect(question, Answer::yes);
    }
    form_ = std::make_unique<frmEnterQA>(services, *live_, *clocks_);
    Activate(*form_);
    Keys(keys);
    screens.Take();
    return *form_;
  }

  QLineEdit* Box(const std::string& name) const { return Find<QLineEdit>(*form_, name.c_str()); }
  std::string Text(const std::string& box) const { return Box(box)->text().toStdString(); }
  std::string SelectedText(const std::string& box) const {
    return Box(box)->selectedText().toStdString();
  }
  std::vector<questionInfo>& Questions() { return live_->CurQuestions(); }
  /// The letters of the last question, and its name.
  std::string LastCodes() {
    const questionInfo& last = Questions().back();
    std::string codes;
    for (const auto letter :
         {last.strSrc(), last.strRspns(), last.strAuth(), last.strUptake(), last.strCogLev(),
          last.strPFMany(), last.strTResp(), last.strElab()}) {
      codes += letter.empty() ? "-" : letter;
    }
    return codes + " " + last.respondName;
  }

  std::optional<LiveObservation> live_;
  std::optional<SessionClocks> clocks_;
  std::unique_ptr<frmEnterQA> form_;
};

TEST_F(EntryForm, TakesAQuestionWithOneHand) {
  struct Road {
    const char* keys;
    const char* boxes;  ///< where each Enter leads to; 0 is the question text
    const char* codes;
  };
  const Road roads[] = {
      {"Why?\n\n\n\n\n\n\n\n\n", "123456790", "TYNNRN-U "},
      {"Why?\nt\ny\na\nt\nh\nAna\ny\ne\n", "123456790", "TYATHY-E Ana"},
      {"Why?\ns\ny\na\na\nr\nBen\no\ne\n", "123456890", "SYAAR-OE Ben"},
      {"Why?\nt\nn\n", "120", "TN------ "},
      {"Why?\ns\nn\nCleo\n", "1260", "SN------ Cleo"},
      {"Why?\nx\n?\nY\nR\nA\n\nA\nT\n", "123456790", "TYNNRN-U "},
      {"Why?\nT\nY\nNN\nt \nH\n\n\n\n", "123456790", "TYNNHN-U "},
  };
  for (const Road& road : roads) {
    for (const char* forward : {"\n", "{Enter}", "{Down}"}) {
      SCOPED_TRACE(std::string(road.keys) + forward);
      Open();
      std::string boxes;
      for (const char key : std::string(road.keys)) {
        Keys(key == '\n' ? forward : std::string(1, key));
        if (key != '\n') continue;
        const std::string name = FocusedName();
        boxes += name == "txtQuestion" ? '0' : name.back();
        EXPECT_EQ(SelectedText(name), name == "Text6" ? "" : Text(name));
      }
      EXPECT_EQ(boxes, road.boxes);
      EXPECT_EQ(Questions().size(), 1U);
      EXPECT_EQ(LastCodes(), road.codes);
      EXPECT_EQ(Text("txtQuestion"), "");
      EXPECT_EQ(Find<QGroupBox>(*form_, "Frame1")->title().toStdString(), "Question #2:");
    }
  }
}

TEST_F(EntryForm, SelectsACodeHoweverItIsComeTo) {
  Open("Why{Up}?\ns\ny\na\nt\nh\nAna\no\n");
  ASSERT_EQ(FocusedName(), "Text9");
  for (const char* box : {"Text8", "Text6", "Text5", "Text4", "Text3", "Text2", "Text1"}) {
    Keys("{Up}");
    EXPECT_EQ(FocusedName(), box);
    EXPECT_EQ(SelectedText(box), box == std::string("Text6") ? "" : Text(box));
  }
  Keys("{Up}{Up}!");
  EXPECT_EQ(Text("txtQuestion"), "Why?!");
  Keys("\t");
  EXPECT_EQ(SelectedText("Text1"), "S");
  for (const char* box : {"Text8", "Text2", "Text6"}) {
    Click(Box(box));
    Settle();
    EXPECT_EQ(SelectedText(box), box == std::string("Text6") ? "" : Text(box));
  }
  Keys("bel");
  EXPECT_EQ(Text("Text6"), "Anabel");
}

TEST_F(EntryForm, CtrlNSavesFromWhereverTheFocusIs) {
  Open();
  std::size_t saved = 0;
  for (const char* name : {"txtQuestion", "Text1", "Text2", "Text3", "Text4", "Text5", "Text6",
                           "Text7", "Text9", "Command3", "Command7"}) {
    Keys("Why?\nt\ny\na\n");
    Find(*form_, name)->setFocus();
    Keys("{Ctrl+N}");
    EXPECT_EQ(Questions().size(), ++saved) << name;
    EXPECT_EQ(LastCodes(), "TYA----- ");
    EXPECT_EQ(FocusedName(), "txtQuestion");
  }
  Keys("{Ctrl+N}");
  EXPECT_EQ(LastCodes(), "-------- ") << "a gap where nothing was heard";
}

TEST_F(EntryForm, AKeyHeldDownFilesOneQuestion) {
  const std::tuple<const char*, Qt::Key, Qt::KeyboardModifiers> held[] = {
      {"Why?\nt\nn", Qt::Key_Return, Qt::NoModifier},
      {"Why?\nt\nn", Qt::Key_Down, Qt::NoModifier},
      {"Why?", Qt::Key_N, Qt::ControlModifier}};
  for (const auto& [keys, key, modifiers] : held) {
    Open(keys);
    for (const bool repeated : {false, true, true}) {
      QKeyEvent press(QEvent::KeyPress, key, modifiers, QString(), repeated);
      QCoreApplication::sendEvent(QApplication::focusWidget(), &press);
    }
    EXPECT_EQ(Questions().size(), 1U);
    EXPECT_FALSE(Box("Text1")->isVisible());
  }
}

TEST_F(EntryForm, OffersInEachStateItsButtonsAndTheirMnemonics) {
  const std::pair<const char*, const char*> states[] = {
      {"", "&Abort"},
      {"Why?\n", "Nor&mal|&Next Q|Scr&ap"},
      {"Why?\n{Alt+A}", "&Abort"},
      {"Why?\nt\nn\n", "&Ditto|&SEGMENT|E&PISODE|&Last|&End Class"},
      {"Why?\nt\nn\nAnd?\n", "Nor&mal|&Ditto|&Next Q|Scr&ap"},
      {"Why?\nt\nn\nAnd?\n{Up}\n", "Nor&mal|&Ditto|&Next Q|&SEGMENT|Scr&ap|&Last|&End Class"},
      {"Why?\nt\nn\n{Alt+D}", "&Ditto|Reading a|&SEGMENT|E&PISODE|&Last|&End Class"},
      {"Why?\nt\nn\n{Alt+L}", "&Abort"},
      {"Why?\nt\nn\n{Alt+P}", "&Yes|&No"},
  };
  for (const auto& [keys, captions] : states) {
    SCOPED_TRACE(keys);
    EXPECT_EQ(CaptionsOf(Open(keys)), captions);
    TryButtons(prompter, [&, &state = keys]() -> QWidget& { return Open(state); });
  }
}

TEST_F(EntryForm, AMnemonicThatIsNotOfferedTypesNothing) {
  Open("Why?\n");
  Keys("{Alt+S}{Alt+Shift+S}{Alt+E}{Alt+P}{Alt+T}");
  EXPECT_EQ(Text("Text1"), "");
  Keys("{Up}{Alt+S}");
  EXPECT_EQ(Text("txtQuestion"), "Why?");
}

TEST_F(EntryForm, AsksForTheReviewOnYes) {
  const std::pair<const char*, const char*> answers[] = {
      {" ", "Y"},       {"y", "Y"},       {"n", "N"},   {"N", "N"},
      {"{Alt+Y}", "Y"}, {"{Alt+N}", "N"}, {"\t ", "N"}, {"\t{Backtab} ", "Y"}};
  for (const auto& [keys, answer] : answers) {
    SCOPED_TRACE(keys);
    Open("Why?\nt\nn\n{Alt+P}");
    EXPECT_TRUE(Find(*form_, "lbl")->isVisible());
    Keys("\n{Enter}{Down}{Up}{Esc}x{Ctrl+N}");
    EXPECT_FALSE(form_->close());
    EXPECT_EQ(FocusedName(), "Command11_0");
    EXPECT_EQ(program.Episodes.size(), 1U);
    EXPECT_EQ(Questions().size(), 1U);
    Keys(keys);
    EXPECT_EQ(program.Episodes.size(), 2U);
    EXPECT_EQ(program.Episodes[0].bReview, answer);
    EXPECT_EQ(screens.Take().back(), "close questionEntry");
  }
}

TEST_F(EntryForm, IsNotClosedByItsFrame) {
  EXPECT_FALSE(Open().close());
  EXPECT_FALSE(Open("Why?\n").close());
  EXPECT_EQ(Text("txtQuestion"), "Why?") << "what is being coded stays";
  Open("Why?\nt\nn\n");
  prompter.Expect("Verify END OF CLASS", Answer::no);
  EXPECT_FALSE(form_->close());
  EXPECT_EQ(FocusedName(), "txtQuestion");
  prompter.Expect("Verify END OF CLASS", Answer::yes);
  form_->close();
  EXPECT_TRUE(program.QuitRequested);
  EXPECT_TRUE(form_->close());
}

/// Records which controls are painted, laid out, shown, hidden or switched.
class ChangeRecorder : public QObject {
 public:
  using Changes = std::set<std::pair<std::string, int>>;

  ChangeRecorder() { qApp->installEventFilter(this); }
  Changes Take() { return std::exchange(changes_, {}); }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const int type = event->type();
    for (const int change : {QEvent::Paint, QEvent::LayoutRequest, QEvent::ShowToParent,
                             QEvent::HideToParent, QEvent::EnabledChange}) {
      if (type == change) changes_.emplace(watched->objectName().toStdString(), type);
    }
    return false;
  }

  Changes changes_;
};

TEST_F(EntryForm, AKeyTouchesNoMoreWithManyQuestionsThanWithFew) {
  ChangeRecorder recorder;
  const auto changes = [&](std::size_t questions) {
    Open("Why?\nt\nn\n");
    Questions().resize(questions, Questions().front());
    Keys("A{Ctrl+N}");
    NewLogText();
    std::vector<ChangeRecorder::Changes> ofEachKey;
    for (const char* key : {"W", "h", "\n", "s", "\n", "y", "\n", "{Up}", "n"}) {
      recorder.Take();
      Keys(key);
      Settle();
      ofEachKey.push_back(recorder.Take());
    }
    EXPECT_EQ(NewLogText(), "");
    return ofEachKey;
  };
  const auto few = changes(1);
  EXPECT_EQ(changes(2000), few);
  // A letter of the text changes its box, and paints nothing but what lies under it.
  EXPECT_TRUE(few[1].count({"txtQuestion", QEvent::Paint}));
  for (const auto& [name, type] : few[1]) {
    EXPECT_EQ(type, QEvent::Paint) << name;
    EXPECT_TRUE(name == "txtQuestion" || name == "frmEnterQA" ||
                Find(*form_, name.c_str())->isAncestorOf(Box("txtQuestion")))
        << name;
  }
}

}  // namespace
}  // namespace orvex
