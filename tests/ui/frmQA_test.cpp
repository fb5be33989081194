#include "ui/frmQA.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QRadioButton>
#include <functional>
#include <memory>

#include "observe/live_observation.h"
#include "observe/session_clocks.h"
#include "support/desk.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

/// What a form may take of 1366 x 768 at 200 %.
constexpr QSize kSmallestScreen(667, 344);

const questionInfo kTeacher = {"Why?", 0, 0, 1, 0, 0, "Ben", 1, -1, 1, 1, 1};
const questionInfo kStudent = {"How?", 1, 0, 1, 2, 1, "Ana", -1, 2, 0, 1, 2};

class frmQATest : public testing::Test, protected Desk {
 protected:
  frmQATest() { OpenLog(); }

  /// Opens the form on an episode with these questions, with the last one shown. An empty one goes
  /// before it.
  void Open(const std::vector<questionInfo>& questions, bool proofMode = false) {
    form_.reset();
    program.Episodes.assign(2, {});
    program.Episodes[1].questions = questions;
    program.ProofEp = 2;
    program.ProofQ = 1;
    form_ =
        std::make_unique<frmQA>(services, EditorOpening{.proofMode = proofMode}, &live_, &clocks_);
    form_->resize(kSmallestScreen);
    Activate(*form_);
  }
  std::vector<questionInfo>& Questions() { return program.Episodes[1].questions; }

  template <typename Control = QWidget>
  Control* The(const std::string& name) const {
    return Find<Control>(*form_, name.c_str());
  }
  std::string Label(const char* name) const { return The<QLabel>(name)->text().toStdString(); }
  std::string Row(int i) const {
    const auto* model = The<QListView>("lVwQ")->model();
    return model->index(i - 1, 0).data().toString().toStdString();
  }
  /// Puts the focus where a click would.
  void GoTo(const std::string& name) { The(name)->setFocus(); }

  LiveObservation live_{services};
  SessionClocks clocks_{services, live_};
  std::unique_ptr<frmQA> form_;
};

TEST_F(frmQATest, TabLeadsThroughTheDimensionsInTheOrderOfTheirCoding) {
  const std::pair<questionInfo, std::string> ways[] = {
      {kTeacher,
       "UpDown1 OptSrc_0 OptResp_0 OptAuth_1 OptUptake_0 OptCogLvl_0 txtRespondName "
       "OptOnePartOf_1 OptElabUn_1 cmdDitto cmdNormal "},
      {kStudent,
       "UpDown1 OptSrc_1 OptResp_0 OptAuth_1 OptUptake_2 OptCogLvl_1 txtRespondName OptTResp_2 "
       "OptElabUn_0 cmdDitto cmdNormal "},
      {questionInfo{}, "UpDown1 OptSrc_0 OptResp_0 cmdDitto cmdNormal "},
  };
  for (const auto& [question, way] : ways) {
    Open({kTeacher, question});
    EXPECT_EQ(FocusedName(), "txtQuestion");
    std::string there;
    do {
      Keys("\t");
      there += FocusedName() + " ";
    } while (FocusedName() != "txtQuestion" && there.size() < 1000);
    EXPECT_EQ(there, way +
                         "Command1 cmdReturn cmdInsB cmdInsA cmdDrop Combo1 lVwQ Text1 "
                         "txtQuestion ");
  }
}

TEST_F(frmQATest, KeysWalkTheListAndShowEachQuestion) {
  std::vector<questionInfo> questions(40, kTeacher);
  for (std::size_t i = 0; i < questions.size(); ++i) {
    questions[i].question = "Q" + std::to_string(i + 1);
  }
  Open(questions);
  GoTo("lVwQ");
  const std::pair<const char*, int> moves[] = {{"{Home}", 1}, {"{Down}{Down}", 3}, {"{Up}", 2},
                                               {"{End}", 40}, {"{Down}", 40},      {"17", 17}};
  for (const auto& [keys, shown] : moves) {
    Keys(keys);
    EXPECT_EQ(Label("Label4"), "Question #" + std::to_string(shown) + " of 40:");
    EXPECT_EQ(The<QLineEdit>("txtQuestion")->text().toStdString(), "Q" + std::to_string(shown));
    EXPECT_EQ(FocusedName(), "lVwQ");
  }
  Keys("{PgUp}");
  EXPECT_LT(form_->Editor().CurQ(), 17);
  Keys("{Alt+P}");  // what is dropped or inserted from the keyboard is followed by the list
  Keys("{Alt+I}New\n{Alt+Z}?");
  const int shown = form_->Editor().CurQ();
  EXPECT_EQ(Questions().at(static_cast<std::size_t>(shown - 1)).question, "New?");
  EXPECT_EQ(Row(shown), "#. New?");
  EXPECT_EQ(The<QListView>("lVwQ")->currentIndex().row(), shown - 1);
  EXPECT_TRUE(The<QListView>("lVwQ")->selectionModel()->isRowSelected(shown - 1));
}

TEST_F(frmQATest, LettersAndSpaceChooseAnOption) {
  Open({kTeacher});
  GoTo("OptSrc_0");
  Keys("s\n");
  EXPECT_EQ(Questions()[0], kTeacher);
  Keys(" ");
  EXPECT_EQ(Questions()[0].Source, 1);
  EXPECT_TRUE(The<QRadioButton>("OptSrc_1")->isChecked());
  EXPECT_FALSE(The("FrOnePartOfMulti")->isVisible());
  EXPECT_TRUE(The("FrTReponse")->isVisible());
  EXPECT_EQ(The<QLineEdit>("txtRespondName")->selectedText(), QStringLiteral("Ben"));
  Click(The("OptResp_1"));
  EXPECT_FALSE(The("FrElabUnelab")->isVisible());
  EXPECT_TRUE(The("FrRespondName")->isVisible());
  GoTo("OptResp_1");
  Keys("{Left} ");
  EXPECT_TRUE(The("FrElabUnelab")->isVisible());
  EXPECT_TRUE(The<QRadioButton>("OptElabUn_1")->isChecked());
}

TEST_F(frmQATest, AnEmptyEpisodeOffersOnlyToBegin) {
  Open({});
  EXPECT_EQ(Label("Label4"), "Question #0 of 0:");
  EXPECT_EQ(CaptionsOf(*form_), "Insert B|&Insert A|Fieldnotes|&Return");
  EXPECT_EQ(FocusedName(), "cmdInsA");
  for (const char* name : {"txtQuestion", "UpDown1", "Label6", "FrSource", "OptResp_0"}) {
    EXPECT_FALSE(The(name)->isEnabled()) << name;
  }
  Keys("{Alt+I}Why?");
  EXPECT_EQ(Questions().at(0).question, "Why?");
  EXPECT_EQ(Questions()[0].iSgQ, 1);
  EXPECT_EQ(CaptionsOf(*form_), "Insert B|&Insert A|Dro&p|Reseq|&Normal|Fieldnotes|&Return");
  Keys("{Alt+P}");
  EXPECT_EQ(FocusedName(), "cmdInsA");
  EXPECT_EQ(The<QLineEdit>("txtSegNum")->text(), QString());
}

TEST_F(frmQATest, EveryMnemonicWorksAndEnterPressesNothing) {
  const std::pair<const char*, const char*> keys[] = {
      {"{Alt+I}", "cmdInsA"},   {"{Alt+P}", "cmdDrop"}, {"{Alt+D}", "cmdDitto"},
      {"{Alt+N}", "cmdNormal"}, {"{Alt+E}", "cmdNxt"},  {"{Alt+R}", "cmdReturn"}};
  for (const auto& [mnemonic, name] : keys) {
    SCOPED_TRACE(name);
    Open({kTeacher, kStudent, kStudent}, true);
    GoTo("lVwQ");
    Keys("{End}");
    const QSignalSpy clicks(The<QPushButton>(name), &QPushButton::clicked);
    GoTo(name);
    Keys("\n{Enter}");
    EXPECT_EQ(clicks.count(), 0);
    GoTo("txtQuestion");
    if (name == std::string("cmdDitto")) prompter.Expect("Duplicate coding only?", Answer::no);
    if (name == std::string("cmdNxt")) {
      prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
    }
    Keys(mnemonic);
    EXPECT_EQ(clicks.count(), 1);
  }
}

TEST_F(frmQATest, TheSegmentNumberIsTypedFreelyAndStepped) {
  Open({kTeacher});
  auto* box = The<QLineEdit>("txtSegNum");
  const std::tuple<const char*, std::string, int> typed[] = {{"3x", "3x", 0},
                                                             {"12", "12", 12},
                                                             {"4{Up}{Up}", "6", 6},
                                                             {"1{Down}{Down}", "0", 0},
                                                             {"{Delete}", "", 0}};
  for (const auto& [keys, shown, stored] : typed) {
    GoTo("UpDown1");
    box->selectAll();
    Keys(keys);
    EXPECT_EQ(box->text().toStdString(), shown);
    Keys("\t");
    EXPECT_EQ(Questions()[0].iSgQ, stored);
    EXPECT_EQ(box->text().toStdString(), std::to_string(stored));
  }
}

TEST_F(frmQATest, FitsTheSmallestScreenAndSqueezesNothing) {
  for (const auto& questions : {std::vector<questionInfo>{}, {kTeacher}}) {
    Open(questions, true);
    EXPECT_EQ(form_->size(), kSmallestScreen);
    const QWidget* contents = The("scrollContents");
    EXPECT_LE(contents->minimumSizeHint().width(), The("scrollArea")->width());
    for (const QWidget* box : contents->findChildren<QGroupBox*>()) {
      EXPECT_GE(box->height(), box->minimumSizeHint().height()) << box->objectName().toStdString();
    }
  }
}

TEST_F(frmQATest, UncodedCaptionsBlinkAndMoveNothing) {
  questionInfo gaps = kTeacher;
  gaps.authenticity = -1;
  gaps.onePartOfMulti = -1;
  gaps.respondName.clear();
  Open({gaps}, true);
  const auto titles = [this] {
    std::string blank;
    for (const QGroupBox* frame : form_->findChildren<QGroupBox*>()) {
      if (frame->isVisible() && frame->title().trimmed().isEmpty())
        blank += frame->objectName().toStdString() + " ";
    }
    return blank;
  };
  const auto places = [this] {
    std::vector<QRect> rects;
    for (const QWidget* child : form_->findChildren<QWidget*>()) rects.push_back(child->geometry());
    return rects;
  };
  const auto before = places();
  EXPECT_EQ(titles(), "");
  TickForms();
  Settle();
  EXPECT_EQ(titles(), "FrAuth FrRespondName FrOnePartOfMulti ");
  EXPECT_EQ(places(), before);
  GoTo("OptAuth_0");
  Keys(" ");
  GoTo("txtRespondName");
  Keys("Ben");
  EXPECT_EQ(titles(), "FrOnePartOfMulti ");
  TickForms();
  EXPECT_EQ(titles(), "");
}

TEST_F(frmQATest, TheOfftaskButtonAnswersItsKeyAlsoWhileItIsBlank) {
  Open({kTeacher});
  live_.KeyInDescription();
  live_.TypeDescription("Macbeth");
  live_.ChooseActivity(4);
  while (live_.Schedule().OfftaskPending() == 0) {
    ASSERT_LT(clock.SecondsSinceMidnight(), 12 * 3600) << "no estimate falls due";
    clock.Advance(0.5);
    live_.OfftaskTick();
  }
  auto* button = The<QPushButton>("cmdOfftaskActive");
  do TickForms();
  while (!button->text().isEmpty());
  EXPECT_TRUE(button->isVisible());
  Keys("{Alt+Z}!");
  prompter.ExpectEstimate({.offtask = "5", .students = "25"});
  Keys("{Alt+O}");
  EXPECT_FALSE(button->isVisible());
  Keys("?");
  EXPECT_EQ(Questions()[0].question, "Why?!?") << "the typing goes on where it was";
}

TEST_F(frmQATest, ChoosingTheEpisodeThatIsShownLoadsItAgain) {
  Open({kTeacher, kTeacher});
  Keys("{Alt+I}{Alt+I}");
  EXPECT_EQ(Row(4), "#. ");
  auto* episodes = The<QComboBox>("Combo1");
  GoTo("Combo1");
  Keys("{Alt+Down}");
  QTest::keyClick(episodes->view(), Qt::Key_Return);
  EXPECT_EQ(Row(4), "4. ");
  Keys("{Up}");
  EXPECT_EQ(Label("Label4"), "Question #0 of 0:");
  EXPECT_EQ(FocusedName(), "Combo1");
  Keys("{Down}");
  EXPECT_EQ(Label("Label4"), "Question #4 of 4:");
}

TEST_F(frmQATest, LeavesByReturnAndByTheFrameWithTheDescriptionLogged) {
  const std::function<void()> ways[] = {[&] { form_->close(); }, [] { Keys("{Alt+R}"); }};
  for (const auto& leave : ways) {
    Open({kTeacher});
    GoTo("Text1");
    Keys("Macbeth");
    NewLogText();
    screens.Take();
    leave();
    EXPECT_EQ(NewLogText(), "REVISED EP.Description: Macbeth 09:00:00\n");
    EXPECT_EQ(screens.Take(),
              (std::vector<std::string>{"show liveObservation", "close questionEditor"}));
  }
}

}  // namespace
}  // namespace orvex
