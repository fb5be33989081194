#include "ui/frmMatrices.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>

#include "observe/live_observation.h"
#include "support/desk.h"
#include "ui/frmSplash.h"
#include "ui/keys.h"

namespace orvex {
namespace {

using namespace test;

bool IsInSight(const QWidget& control) {
  return control.visibleRegion().boundingRect() == control.rect();
}

class MatricesForm : public testing::Test, protected Desk {
 protected:
  void SetUp() override {
    OpenLog();
    live_ = std::make_unique<LiveObservation>(services);
    form_ = std::make_unique<frmMatrices>(services, *live_, SurveyCaller::questionEntry);
    Activate(*form_);
  }
  void OpenFile(const char* file) {
    form_ = std::make_unique<frmMatrices>(services, ReadSurFile(TestData(file)));
    Activate(*form_);
  }

  std::string Shown(const char* label) const {
    return Find<QLabel>(*form_, label)->text().toStdString();
  }
  std::string Tab(int page) const {
    return Find<QTabWidget>(*form_, "pages")->tabText(page).toStdString();
  }
  /// The button shown as selected; -1 for none.
  int Rating(int statement) const {
    int selected = -1;
    const QString name = QStringLiteral("Option%1_%2").arg(statement);
    for (int i = 0; auto* button = form_->findChild<QRadioButton*>(name.arg(i)); ++i) {
      if (button->isChecked()) selected = selected < 0 ? i : 99;
    }
    return selected;
  }
  const Survey& Answers() const { return live_->SurveyAnswers(); }

  std::unique_ptr<LiveObservation> live_;
  std::unique_ptr<frmMatrices> form_;
};

TEST_F(MatricesForm, IsFilledInFromTheKeyboardAlone) {
  EXPECT_EQ(FocusedName(), "Check1_0");
  Keys(" {Down}{Down} {End} portfolio\n");
  EXPECT_EQ(FocusedName(), "Check2_0");
  Keys("i \n{Up} \nr \n{End} \n ");
  EXPECT_EQ(FocusedName(), "Check6_0");
  Keys("\n");
  EXPECT_EQ(FocusedName(), "Option1_0");
  // Statement 3 has no value 3, and 5 no "N/A"; 25 is the last.
  Keys(
      "123n0n10"
      "0");
  EXPECT_EQ(FocusedName(), "Option8_0") << "on the next page";
  Keys("01230123n1231{Up}{Delete}\n2{Down}3");

  Survey wanted;
  for (const int item : {0, 2, 9}) wanted.checks[0].set(static_cast<std::size_t>(item));
  wanted.other = "portfolio";
  wanted.checks[1].set(18);
  wanted.checks[2].set(7);
  wanted.checks[3].set(1);
  wanted.checks[4].set(2);
  wanted.checks[5].set(0);
  wanted.ratings = {1, 2, 0, 0, 1, 0, 0, 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3, -1, 2, -1, 4, -1, -1};
  EXPECT_EQ(Answers().checks, wanted.checks);
  EXPECT_EQ(Answers().ratings, wanted.ratings);
  EXPECT_EQ(Answers().other, wanted.other);
}

TEST_F(MatricesForm, RatesTheStatementThatHasTheFocusAndGoesOn) {
  struct Case {
    int statement;
    const char* keys;
    int rating;
    const char* focus;
  };
  const Case cases[] = {
      {1, "3", 3, "Option2_0"},
      {1, "4", -1, "Option1_0"},
      {1, "n", -1, "Option1_0"},
      {3, "n", 0, "Option4_0"},
      {3, "0", 1, "Option4_0"},
      {3, "3", -1, "Option3_0"},
      {7, "0", 0, "Option8_0"},
      {16, "3", 4, "Option17_0"},
      {16, "N{Up}", 0, "Option16_0"},
      {16, "2{Up}", 3, "Option16_3"},
      {25, "2", 2, "Option25_2"},
      {8, "{Up}", -1, "Option7_0"},
      {1, "{Up}", -1, "Option1_0"},
      {25, "\n", -1, "Option25_0"},
      {5, "{Right}{Right} ", 2, "Option5_2"},
      {5, "2{Up}{Delete}", -1, "Option5_2"},
      {5, "1{Up}{Backspace}\n", -1, "Option6_0"},
      {5, "{End}", -1, "Option5_3"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(std::to_string(each.statement) + " " + each.keys);
    live_->SurveyAnswers() = Survey();
    form_->Refresh();
    Find<QTabWidget>(*form_, "pages")->setCurrentIndex(each.statement <= 7 ? 1 : 2);
    Find(*form_, ("Option" + std::to_string(each.statement) + "_0").c_str())->setFocus();
    Keys(each.keys);
    EXPECT_EQ(Rating(each.statement), each.rating);
    EXPECT_EQ(Answers().ratings.at(static_cast<std::size_t>(each.statement - 1)), each.rating);
    EXPECT_EQ(FocusedName(), each.focus);
    EXPECT_TRUE(IsInSight(*QApplication::focusWidget()));
  }
}

TEST_F(MatricesForm, SaysHowManyStatementsAreOpen) {
  EXPECT_EQ(Shown("lblOpen"), "25 of 25 statements open");
  Keys("{Ctrl+Tab}");
  EXPECT_EQ(FocusedName(), "Option1_0");
  Keys("000000");
  EXPECT_EQ(Tab(1), "Instructional Dimensions Scale: 1 open");
  Keys("00{Ctrl+PgUp}");
  EXPECT_EQ(FocusedName(), "Option7_0") << "where the page was left";
  EXPECT_EQ(Tab(1), "Instructional Dimensions Scale: complete");
  EXPECT_EQ(Tab(2), "Student Engagement Scale: 17 open");
  EXPECT_EQ(Shown("lblOpen"), "17 of 25 statements open");
  Keys("{Ctrl+PgDown}00000000000000000");
  EXPECT_EQ(Shown("lblOpen"), "All 25 statements are rated");
  Click(Find(*form_, "cmdTakeBack25"));
  EXPECT_EQ(Shown("lblOpen"), "1 of 25 statements open");
  EXPECT_EQ(Rating(25), -1);
}

TEST_F(MatricesForm, TakesTheOtherTextOnlyWhileItsItemIsChecked) {
  auto* text = Find<QLineEdit>(*form_, "Text5");
  EXPECT_FALSE(text->isEnabled());
  Click(Find(*form_, "Check1_9"));
  EXPECT_EQ(FocusedName(), "Text5");
  Keys("portfolio{Up} ");
  EXPECT_EQ(FocusedName(), "Check1_9");
  EXPECT_FALSE(text->isEnabled());
  EXPECT_EQ(text->text(), QStringLiteral("portfolio"));
  Keys("\t");
  EXPECT_EQ(FocusedName(), "Check2_0");
}

TEST_F(MatricesForm, TabPassesEachGroupAndEachStatementOnce) {
  std::string way;
  const auto goRound = [&way] {
    way.clear();
    const std::string start = FocusedName();
    do {
      way += FocusedName() + " ";
      EXPECT_TRUE(IsInSight(*QApplication::focusWidget())) << way;
      Keys("\t");
    } while (FocusedName() != start && way.size() < 1000);
  };
  // As little room as there is on a small screen at twice the size.
  form_->resize(683, 364);
  Settle();
  for (const char* area : {"listsArea", "engagementArea"}) {
    EXPECT_LE(Find<QScrollArea>(*form_, area)->widget()->minimumSizeHint().width(), 640);
  }
  Keys("{Up}");
  EXPECT_TRUE(IsInSight(*Find(*form_, "Check1_9")));
  Keys("{Home}");
  goRound();
  EXPECT_EQ(way, "Check1_0 Check2_0 Check3_0 Check4_0 Check5_0 Check6_0 Command1 ");
  Keys("{Ctrl+Tab}");
  goRound();
  EXPECT_EQ(way, "Option1_0 Option2_0 Option3_0 Option4_0 Option5_0 Option6_0 Option7_0 Command1 ");
}

TEST_F(MatricesForm, DuringTheClassGoesBackToItsCallerAndPromptsForEstimates) {
  EXPECT_EQ(CaptionsOf(*form_), "&Return");
  Keys("{Alt+R}");
  EXPECT_EQ(screens.Take(), (std::vector<std::string>{"show questionEntry", "hide survey"}));
  form_->SetCaller(SurveyCaller::liveObservation);
  EXPECT_FALSE(form_->close());
  EXPECT_EQ(screens.Take(), (std::vector<std::string>{"show liveObservation", "hide survey"}));

  live_->TypeDescription("Act");
  live_->ChooseActivity(4);
  const auto wait = [this](int seconds) {
    for (int i = 0; i < seconds; ++i) {
      clock.Advance(1);
      live_->OfftaskTick();
      TickForms();
    }
  };
  wait(70);
  EXPECT_EQ(Shown("lblOfftask").substr(0, 10), "Offtask in");
  wait(55);
  EXPECT_EQ(Shown("lblOfftask"), "");
  prompter.ExpectEstimate({.offtask = "5", .students = "25"});
  Keys("{Alt+O}");
  EXPECT_EQ(CaptionsOf(*form_), "&Return");
}

TEST_F(MatricesForm, OnAFileSavesAndLeaves) {
  OpenFile("class/11-4-2.sur");
  EXPECT_EQ(CaptionsOf(*form_), "&Save|E&xit");
  EXPECT_EQ(Shown("lblClassID"), "Class ID 11-4-2");
  EXPECT_EQ(Find<QLineEdit>(*form_, "Text5")->text(),
            QStringLiteral("background of Romeo and Juliet"));
  EXPECT_TRUE(Find<QCheckBox>(*form_, "Check6_3")->isChecked());
  EXPECT_EQ(form_->findChild<QTimer*>(QStringLiteral("Timer1")), nullptr);
  Keys("{Alt+S}");
  EXPECT_EQ(FileBytes(folder / "11-4-2.sur"), FileBytes(TestData("class/11-4-2.sur")));
  prompter.Expect("Save changes?", Answer::no);
  prompter.Expect("Edit Another File?", Answer::no);
  EXPECT_FALSE(form_->close());
  EXPECT_EQ(screens.Take(), std::vector<std::string>{"end"});
}

TEST(MainMenuForm, OpensTheSurveyFileThatIsChosen) {
  Desk desk;
  frmSplash menu(desk.services, desk.folder.Path());
  Activate(menu);
  desk.prompter.ExpectFile({.path = desk.folder / "5-12-3.sur", .folder = desk.folder.Path()});
  Keys("{Alt+M}");
  EXPECT_EQ(desk.screens.Take(),
            (std::vector<std::string>{"show survey file 5-12-3.sur", "close mainMenu"}));
}

}  // namespace
}  // namespace orvex
