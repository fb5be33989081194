#include "ui/forms/frmMatrices.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>

#include "observe/live_observation.h"
#include "support/desk.h"
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
  std::string Shown(const char* label) const {
    return Find<QLabel>(*form_, label)->text().toStdString();
  }
  /// The position of the selected button; -1 for none.
  int Rating(int statement) const {
    int selected = -1;
    const QString name = QStringLiteral("Option%1_%2").arg(statement);
    for (int i = 0; auto* button = form_->findChild<QRadioButton*>(name.arg(i)); ++i) {
      if (button->isChecked()) selected = selected < 0 ? i : 99;
    }
    return selected;
  }
  const Survey& Answers() const { return live_->Running().survey; }

  std::unique_ptr<LiveObservation> live_;
  std::unique_ptr<frmMatrices> form_;
};

TEST_F(MatricesForm, IsFilledInFromTheKeyboardAlone) {
  EXPECT_FALSE(Find(*form_, "Text5")->isEnabled()) << "until its item is checked";
  EXPECT_EQ(FocusedName(), "Check1_0");
  Keys(" {Down}{Down} {End} portfolio\n");
  EXPECT_EQ(FocusedName(), "Check2_0");
  Keys("i \n{Up} \nr \n{End} \n ");
  // Statement 3 has no value 3, and 5 has no "N/A"; 25 is the last one.
  Keys("\n123n0n1{Up}100");
  EXPECT_EQ(FocusedName(), "Option8_0") << "on the next page";
  Keys("01230123n1231{Up}{Delete}\n2{Down}3");

  Survey wanted;
  const std::vector<std::size_t> checked[] = {{0, 2, 9}, {18}, {7}, {1}, {2}, {0}};
  for (std::size_t group = 0; group < kCheckGroups; ++group) {
    for (const std::size_t item : checked[group]) wanted.checks[group].set(item);
  }
  wanted.other = "portfolio";
  wanted.ratings = {1, 2, 0, 0, 1, 0, 0, 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3, -1, 2, -1, 4, -1, -1};
  EXPECT_EQ(Answers(), wanted);
}

TEST_F(MatricesForm, RatesTheStatementThatHasTheFocusAndGoesOn) {
  const std::tuple<int, const char*, int, const char*> cases[] = {
      {1, "3", 3, "Option2_0"},
      {1, "4", -1, "Option1_0"},
      {3, "n", 0, "Option4_0"},
      {3, "3", -1, "Option3_0"},
      {7, "0", 0, "Option8_0"},
      {16, "2{Up}", 3, "Option16_3"},
      {25, "2", 2, "Option25_2"},
      {8, "{Up}", -1, "Option7_0"},
      {1, "{Up}", -1, "Option1_0"},
      {5, "{Right} ", 1, "Option5_1"},
      {5, "2{Up}{Delete}", -1, "Option5_2"},
      {5, "1{Up}{Backspace}\n", -1, "Option6_0"}};
  for (const auto& [statement, keys, rating, focus] : cases) {
    SCOPED_TRACE(std::to_string(statement) + " " + keys);
    live_->FillSurvey({});
    form_->Refresh();
    Find<QTabWidget>(*form_, "pages")->setCurrentIndex(statement <= 7 ? 1 : 2);
    Find(*form_, ("Option" + std::to_string(statement) + "_0").c_str())->setFocus();
    Keys(keys);
    EXPECT_EQ(Rating(statement), rating);
    EXPECT_EQ(Answers().ratings.at(static_cast<std::size_t>(statement - 1)), rating);
    EXPECT_EQ(FocusedName(), focus);
    EXPECT_TRUE(IsInSight(*QApplication::focusWidget()));
  }
}

TEST_F(MatricesForm, SaysHowManyStatementsAreOpen) {
  const auto* pages = Find<QTabWidget>(*form_, "pages");
  Keys("{Ctrl+Tab}000000");
  EXPECT_EQ(pages->tabText(1), QStringLiteral("Instructional Dimensions Scale: 1 open"));
  Keys("00{Ctrl+PgUp}");
  EXPECT_EQ(FocusedName(), "Option7_0") << "where the page was left";
  EXPECT_EQ(pages->tabText(1), QStringLiteral("Instructional Dimensions Scale: complete"));
  EXPECT_EQ(pages->tabText(2), QStringLiteral("Student Engagement Scale: 17 open"));
  EXPECT_EQ(Shown("lblOpen"), "17 of 25 statements open");
  Keys("{Ctrl+PgDown}00000000000000000");
  EXPECT_EQ(Shown("lblOpen"), "All 25 statements are rated");
  Click(Find(*form_, "cmdTakeBack25"));
  EXPECT_EQ(Rating(25), -1);
}

TEST_F(MatricesForm, TabPassesEachGroupAndEachStatementOnce) {
  const auto round = [] {
    std::string way;
    const std::string start = FocusedName();
    do {
      way += FocusedName() + " ";
      EXPECT_TRUE(IsInSight(*QApplication::focusWidget())) << way;
      Keys("\t");
    } while (FocusedName() != start && way.size() < 1000);
    return way;
  };
  // The room on a small screen at twice the size.
  form_->resize(683, 364);
  Settle();
  for (const char* area : {"listsArea", "engagementArea"}) {
    EXPECT_LE(Find<QScrollArea>(*form_, area)->widget()->minimumSizeHint().width(), 640);
  }
  Keys("{Up}");
  EXPECT_TRUE(IsInSight(*Find(*form_, "Check1_9")));
  Keys("{Home}");
  EXPECT_EQ(round(), "Check1_0 Check2_0 Check3_0 Check4_0 Check5_0 Check6_0 Command1 ");
  Keys("{Ctrl+Tab}");
  EXPECT_EQ(round(),
            "Option1_0 Option2_0 Option3_0 Option4_0 Option5_0 Option6_0 Option7_0 Command1 ");
}

TEST_F(MatricesForm, DuringTheClassReturnsAndPromptsForEstimates) {
  EXPECT_EQ(CaptionsOf(*form_), "&Return");
  Keys("{Alt+R}");
  EXPECT_FALSE(form_->close());
  const std::string show = "show questionEntry";
  EXPECT_EQ(screens.Take(), (std::vector<std::string>{show, "hide survey", show, "hide survey"}));
  live_->TypeDescription("Act");
  live_->ChooseActivity(4);
  for (int second = 0; second < 125; ++second) {
    clock.Advance(1);
    live_->Estimates().Tick();
  }
  TickForms();
  prompter.ExpectEstimate({.offtask = "5", .students = "25"});
  Keys("{Alt+O}");
  EXPECT_EQ(CaptionsOf(*form_), "&Return");
}

TEST_F(MatricesForm, OnAFileSavesAndLeaves) {
  const auto file = TestData("class/11-4-2.sur");
  form_ = std::make_unique<frmMatrices>(services, ReadSurFile(file));
  Activate(*form_);
  EXPECT_EQ(CaptionsOf(*form_), "&Save|E&xit");
  EXPECT_EQ(Shown("lblClassID"), "Class ID 11-4-2");
  EXPECT_TRUE(Find<QCheckBox>(*form_, "Check6_3")->isChecked());
  Keys("{Alt+S}");
  EXPECT_EQ(FileBytes(folder / "11-4-2.sur"), FileBytes(file));
  prompter.Expect("Save changes?", Answer::no);
  prompter.Expect("Edit Another File?", Answer::no);
  EXPECT_FALSE(form_->close());
  EXPECT_EQ(screens.Take(), std::vector<std::string>{"end"});
}

}  // namespace
}  // namespace orvex
