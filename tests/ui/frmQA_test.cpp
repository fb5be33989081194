#include "ui/forms/frmQA.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QRadioButton>
#include <memory>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "support/asked.h"
#include "support/desk.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

const questionInfo kTeacher = test::Asked("Why?", {"T", "Y", "A", "N", "R", "Ben", "N", "", "U"});
const questionInfo kStudent =
    test::Asked("How?", {"S", "Y", "A", "A", "H", "Ana", "", "O", "E"}, 1, 2);

class frmQATest : public testing::Test, protected Desk {
 protected:
  frmQATest() { OpenLog(); }

  /// Opens the form on an episode with these questions, showing the last one. An empty episode
  /// comes before it.
  void Open(const std::vector<questionInfo>& questions, bool proofMode = false) {
    form_.reset();
    program.Episodes.assign(2, {});
    program.Episodes[1].questions = questions;
    program.ProofEp = 2;
    program.ProofQ = 1;
    form_ = std::make_unique<frmQA>(services, QuestionEditorStart{.proofMode = proofMode}, &live_,
                                    &clocks_);
    form_->resize(kSmallestScreen);
    Activate(*form_);
  }
  std::vector<questionInfo>& Questions() { return program.Episodes[1].questions; }

  template <typename Control = QWidget>
  Control* The(const std::string& name) const {
    return Find<Control>(*form_, name.c_str());
  }
  std::string Label(const char* name) const { return The<QLabel>(name)->text().toStdString(); }
  std::string Text(const char* box) const { return The<QLineEdit>(box)->text().toStdString(); }
  std::string Row(int i) const {
    const auto* model = The<QListView>("lVwQ")->model();
    return model->index(i - 1, 0).data().toString().toStdString();
  }
  /// Focuses the control as a click would.
  void GoTo(const std::string& name) { The(name)->setFocus(); }

  LiveObservation live_{services};
  SessionClocks clocks_{services, live_};
  std::unique_ptr<frmQA> form_;
};

TEST_F(frmQATest, TabLeadsThroughTheDimensionsInTheOrderOfTheirCoding) {
  Open({kTeacher, kStudent});
  std::string way;
  do {
    way += FocusedName() + " ";
    Keys("\t");
  } while (FocusedName() != "txtQuestion" && way.size() < 1000);
  EXPECT_EQ(way,
            "txtQuestion UpDown1 OptSrc_1 OptResp_0 OptAuth_1 OptUptake_2 OptCogLvl_1 "
            "txtRespondName OptTResp_2 OptElabUn_0 cmdDitto cmdNormal Command1 cmdReturn cmdInsB "
            "cmdInsA cmdDrop Combo1 lVwQ Text1 ");
  Keys("{Alt+I}\t\t");
  EXPECT_EQ(FocusedName(), "OptSrc_0") << "the question before had the other one";
}

TEST_F(frmQATest, KeysWalkTheListAndShowEachQuestion) {
  std::vector<questionInfo> questions(40, kTeacher);
  for (std::size_t i = 0; i < 40; ++i) questions[i].question = "Q" + std::to_string(i + 1);
  Open(questions);
  GoTo("lVwQ");
  const std::pair<const char*, int> moves[] = {
      {"{Home}", 1}, {"{Down}{Down}", 3}, {"{Up}", 2}, {"{End}{Down}", 40}, {"17", 17}};
  for (const auto& [keys, shown] : moves) {
    Keys(keys);
    EXPECT_EQ(Label("Label4"), "Question #" + std::to_string(shown) + " of 40:");
    EXPECT_EQ(Row(shown), std::to_string(shown) + ". " + Text("txtQuestion"));
    EXPECT_EQ(FocusedName(), "lVwQ");
  }
  // The list follows when the keyboard drops or inserts a question.
  Keys("{Alt+P}{Alt+I}New\n{Alt+Z}?");
  EXPECT_EQ(Questions()[17].question, "New?");
  EXPECT_EQ(Row(18), "#. New?");
  EXPECT_TRUE(The<QListView>("lVwQ")->selectionModel()->isRowSelected(17));
}

TEST_F(frmQATest, AQuestionIsCodedFromTheKeyboardAlone) {
  Open({});
  EXPECT_EQ(CaptionsOf(*form_), "Insert B|&Insert A|Fieldnotes|&Return");
  EXPECT_EQ(FocusedName(), "cmdInsA");
  for (const char* name : {"txtQuestion", "UpDown1", "Label6", "FrSource", "OptResp_0"}) {
    EXPECT_FALSE(The(name)->isEnabled()) << name;
  }
  Keys("{Alt+I}Why?\t3x");
  EXPECT_EQ(Text("txtSegNum"), "3x") << "nothing changes under the typing hand";
  Keys("\t");
  EXPECT_EQ(Text("txtSegNum"), "0");
  Keys("{Backtab}{Down}{Up}{Up}\t \t \ta \tt \th \tBen\t{Down} \tu \n");
  EXPECT_EQ(Questions().at(0),
            (test::Asked("Why?", {"T", "Y", "A", "T", "H", "Ben", "N", "", "U"}, 0, 2)));
  EXPECT_EQ(CaptionsOf(*form_), "Insert B|&Insert A|Dro&p|Reseq|&Normal|Fieldnotes|&Return");
  GoTo("OptSrc_0");
  Keys("s ");
  EXPECT_FALSE(The("FrOnePartOfMulti")->isVisible());
  EXPECT_EQ(The<QLineEdit>("txtRespondName")->selectedText(), QStringLiteral("Ben"));
  GoTo("OptTResp_0");
  Keys("o ");
  EXPECT_EQ(Questions()[0].strTResp(), "O");
  prompter.ExpectNotes("Quiet today");
  Click(The("Command1"));
  EXPECT_EQ(live_.Running().fieldNotes, "Quiet today");
  Keys("{Alt+P}");
  EXPECT_EQ(FocusedName(), "cmdInsA");
  EXPECT_EQ(Text("txtSegNum"), "");
}

TEST_F(frmQATest, UndoAndRedoAreKeysOfEveryControl) {
  Open({kTeacher, kStudent});
  const auto before = Questions();
  GoTo("lVwQ");
  Keys("{Up}{Alt+P}");
  EXPECT_EQ(Label("lblUndo"), "Ctrl+Z brings question 1 of episode 2 back");
  Keys("{Ctrl+Z}");
  EXPECT_EQ(Label("lblUndo"), "Ctrl+Shift+Z takes question 1 of episode 2 away");
  EXPECT_EQ(Label("Label4") + Row(1) + Row(2), "Question #1 of 2:1. Why?2. How?");
  Keys("{Ctrl+Shift+Z}{Ctrl+Z}{Alt+I}New\t4\ts {Ctrl+Z}{Ctrl+Z}{Ctrl+Z}");
  EXPECT_EQ(Questions()[1].question, "") << "each box is a step, and the choice";
  GoTo("Text1");
  Keys("Lear{Ctrl+Z}");
  EXPECT_EQ(Text("Text1") + std::to_string(Questions().size()), "3") << "it has its own undo";
  Keys("{Ctrl+Z}");
  EXPECT_EQ(Questions(), before);
}

TEST_F(frmQATest, NextPutsTheFocusOnWhatIsMissing) {
  std::vector<questionInfo> questions(4, kTeacher);
  questions[1].codes[Dimension::uptake] = kUncoded;
  questions[2].respondName.clear();
  questions[3].question.clear();
  Open(questions, true);
  for (const char* missing : {"OptUptake_0", "txtRespondName", "txtQuestion"}) {
    Keys("{Alt+E}");
    EXPECT_EQ(FocusedName(), missing);
  }
}

TEST_F(frmQATest, EveryMnemonicWorksAndEnterPressesNothing) {
  TryButtons(
      prompter,
      [this]() -> QWidget& {
        Open({kStudent}, true);
        return *form_;
      },
      false);
  Open({kStudent, kTeacher});
  prompter.Expect("Duplicate coding only?", Answer::yes);
  Keys("{Alt+D}");
  EXPECT_EQ(Questions()[1].respondName, "Ana");
}

TEST_F(frmQATest, BlinkingMovesNothingOnTheSmallestScreen) {
  questionInfo gaps = kTeacher;
  gaps.codes[Dimension::authenticity] = kUncoded;
  gaps.codes[Dimension::onePartOfMulti] = kUncoded;
  gaps.respondName.clear();
  for (const auto& questions : {std::vector<questionInfo>{}, {gaps}}) {
    Open(questions, true);
    const auto places = [children = form_->findChildren<QWidget*>()] {
      std::vector<QRect> rects;
      for (const QWidget* child : children) rects.push_back(child->geometry());
      return rects;
    };
    const auto before = places();
    TickForms();
    Settle();
    EXPECT_EQ(places(), before);
    EXPECT_EQ(form_->size(), kSmallestScreen);
    const QWidget* contents = The("scrollContents");
    EXPECT_LE(contents->minimumSizeHint().width(), The("scrollArea")->width());
    std::string blank;
    for (const QGroupBox* box : contents->findChildren<QGroupBox*>()) {
      EXPECT_GE(box->height(), box->minimumSizeHint().height()) << box->objectName().toStdString();
      const bool captioned = !box->title().trimmed().isEmpty();
      if (box->isVisible() && !captioned) blank += box->objectName().toStdString() + " ";
    }
    EXPECT_EQ(blank, questions.empty() ? "" : "FrAuth FrRespondName FrOnePartOfMulti ");
  }
}

TEST_F(frmQATest, TheOfftaskButtonAnswersItsKeyAlsoWhileItIsBlank) {
  Open({kTeacher});
  live_.TypeDescription("Macbeth");
  live_.ChooseActivity(4);
  for (int second = 0; second < 125; ++second) {
    clock.Advance(1);
    live_.Estimates().Tick();
  }
  TickForms();
  const auto* button = The<QPushButton>("cmdOfftaskActive");
  EXPECT_TRUE(button->isVisible() && button->text().isEmpty());
  prompter.ExpectEstimate({.offtask = "5", .students = "25"});
  Keys("!{Alt+O}?");
  EXPECT_FALSE(button->isVisible());
  EXPECT_EQ(Questions()[0].question, "Why?!?") << "the typing goes on where it was";
}

TEST_F(frmQATest, ChoosingTheEpisodeThatIsShownLoadsItAgain) {
  Open({kTeacher, kStudent});
  Keys("{Alt+I}{Alt+I}");
  EXPECT_EQ(Row(4), "#. ");
  GoTo("Combo1");
  Keys("{Alt+Down}");
  QTest::keyClick(The<QComboBox>("Combo1")->view(), Qt::Key_Return);
  EXPECT_EQ(Row(4), "4. ");
  Keys("{Up}");
  EXPECT_EQ(Label("Label4"), "Question #0 of 0:");
  EXPECT_EQ(FocusedName(), "Combo1");
  Questions()[3].question = "Last";
  Keys("{Down}");
  EXPECT_EQ(Label("Label4") + Text("txtQuestion"), "Question #4 of 4:Last");
}

TEST_F(frmQATest, LeavesByTheFrameWithTheDescriptionLogged) {
  Open({kTeacher});
  GoTo("Text1");
  Keys("Macbeth");
  NewLogText();
  form_->close();
  EXPECT_EQ(NewLogText(), "REVISED EP.Description: Macbeth 09:00:00\n");
  EXPECT_EQ(screens.Take().back(), "close questionEditor");
}

}  // namespace
}  // namespace orvex
