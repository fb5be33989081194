#include "survey/survey_form.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/desk.h"
#include "support/faulty_storage.h"
#include "survey/open_survey.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using Moves = std::vector<std::string>;

const Identity kIdentity = {"", "5", "12", "3", ""};
const char* const kTryAgain = "The survey could not be written. Try again?";

TEST(SurveyOfTheClass, IsLeftForItsCallerAndWritesNothing) {
  test::Desk desk;
  Survey answers;
  SurveyForm form(desk.services, answers, SurveyCaller::liveObservation);
  form.Rate(2, 0);
  form.Command1_Click();
  EXPECT_EQ(desk.screens.Take(), (Moves{"show liveObservation", "hide survey"}));
  form.SetCaller(SurveyCaller::questionEntry);
  form.RequestClose();
  EXPECT_EQ(desk.screens.Take(), (Moves{"show questionEntry", "hide survey"}));
  form.Command2_Click();
  EXPECT_EQ(desk.screens.Take(), Moves{}) << "there is no E&xit during the class";
  EXPECT_EQ(answers.ratings[2], 0) << "the answers are the class's";
  EXPECT_TRUE(fs::is_empty(desk.folder.Path()));
}

TEST(SurveyForm, CountsWhatIsOpenAndTakesTheOtherTextWhileItIsChecked) {
  test::Desk desk;
  Survey answers;
  SurveyForm form(desk.services, answers, SurveyCaller::liveObservation);
  form.Rate(6, 3);
  form.Rate(7, 0);
  form.Rate(8, 1);
  form.Rate(8, kUncoded);
  EXPECT_EQ(form.Open(kSurveyScales[0]), 6);
  EXPECT_EQ(form.Open(kSurveyScales[1]), 17);
  EXPECT_EQ(form.Open(), 23);

  form.TypeOther("lost");
  form.SetCheck(0, kOtherItem, true);
  EXPECT_TRUE(form.OtherEnabled());
  EXPECT_EQ(answers.other, "");
  form.TypeOther("portfolio");
  form.SetCheck(0, kOtherItem, false);
  form.TypeOther("lost");
  EXPECT_FALSE(form.OtherEnabled());
  EXPECT_EQ(answers.other, "portfolio");
}

TEST(SurveyOnAFile, IsSavedUnderItsNumbersInItsSpelling) {
  test::Desk desk;
  SurFile file = {.identity = kIdentity, .answers = {}, .encoding = Encoding::windows1252};
  file.answers.checks[0].set(kOtherItem);
  file.answers.other = "caf\u00e9";
  SurveyForm form(desk.services, file);
  EXPECT_EQ(form.ClassIdText(), "Class ID 5-12-3");
  form.Rate(15, 4);
  form.Command1_Click();
  file.answers.ratings[15] = 4;
  EXPECT_EQ(test::FileBytes(desk.folder / "5-12-3.sur"), FormatSur(file));
  EXPECT_EQ(desk.screens.Take(), Moves{}) << "the form stays open";
}

TEST(SurveyOnAFile, AFailedSaveIsTriedAgainOrStaysInTheForm) {
  const test::TestFolder folder;
  test::FaultyStorage full;
  test::Desk desk;
  const Services services{desk.program, desk.log, full, desk.clock, desk.prompter, desk.screens};
  SurveyForm form(services, SurFile{.identity = kIdentity, .answers = {}});
  form.Rate(0, 2);

  full.Fail(1, ENOSPC, "write");
  desk.prompter.Expect("Save changes?", Answer::yes);
  desk.prompter.Expect(kTryAgain, Answer::no);
  form.Command2_Click();
  EXPECT_NE(desk.prompter.asked.back().details.find("5-12-3.sur: No space"), std::string::npos);
  EXPECT_EQ(desk.screens.Take(), Moves{});
  EXPECT_EQ(form.Answers().ratings[0], 2);

  full.Fail(1, ENOSPC, "write");
  desk.prompter.Expect(kTryAgain, Answer::yes);
  form.Command1_Click();
  EXPECT_EQ(ReadSurFile(desk.folder / "5-12-3.sur").answers, form.Answers());
}

TEST(SurveyOnAFile, ExitEndsTheProgramOrGoesOnToAnotherFile) {
  const ChosenFile none;
  const ChosenFile next = {.path = "/obs/7-1-1.sur", .folder = "/obs"};
  struct Case {
    Answer another;
    std::optional<ChosenFile> chosen;
    bool readable;
    Moves moves;
  };
  const Moves toMenu = {"show mainMenu", "close survey"};
  const auto after = [&toMenu](const Moves& more) {
    Moves moves = toMenu;
    moves.insert(moves.end(), more.begin(), more.end());
    return moves;
  };
  const Case cases[] = {
      {Answer::no, std::nullopt, true, {"end"}},
      {Answer::yes, none, true, after({"end"})},
      {Answer::yes, next, true, after({"show survey file 7-1-1.sur", "close mainMenu"})},
      {Answer::yes, next, false, after({"show survey file 7-1-1.sur"})},
  };
  for (const Case& each : cases) {
    for (const Answer save : {Answer::yes, Answer::no}) {
      test::Desk desk;
      desk.screens.surveyFileIsGood = each.readable;
      SurveyForm form(desk.services, SurFile{.identity = kIdentity, .answers = {}});
      desk.prompter.Expect("Save changes?", save);
      desk.prompter.Expect("Edit Another File?", each.another);
      if (each.chosen) desk.prompter.ExpectFile(*each.chosen);
      form.RequestClose();
      EXPECT_EQ(desk.screens.Take(), each.moves);
      EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::no);
      EXPECT_EQ(fs::exists(desk.folder / "5-12-3.sur"), save == Answer::yes);
    }
  }
}

TEST(ChoosingASurveyFile, MovesTheDataPathWhateverIsChosen) {
  test::Desk desk;
  desk.program.DataPath = "/obs";
  desk.prompter.ExpectFile({.path = {}, .folder = "/else"});
  EXPECT_FALSE(ChooseSurveyFile(desk.services));
  EXPECT_EQ(desk.program.DataPath, "/else");
  EXPECT_EQ(desk.screens.Take(), Moves{});
  EXPECT_EQ(desk.prompter.askedFiles[0].folder, "/obs");
  EXPECT_EQ(desk.prompter.askedFiles[0].filter, "SUR files (*.SUR)|*.SUR");
}

TEST(LoadingASurveyFile, TellsWhereItIsWrongOrWhyItCannotBeRead) {
  const std::pair<const char*, const char*> cases[] = {
      {"bad/rating5-is-x.sur", "rating5-is-x.sur, line 32: expected a rating"},
      {"bad/not-there.sur", "not-there.sur: No such file"},
      {"bad/directory.sur", "directory.sur: "},
  };
  for (const auto& [file, details] : cases) {
    test::Desk desk;
    desk.prompter.Expect("Invalid file format", Answer::ok);
    EXPECT_FALSE(LoadSurvey(desk.services, test::TestData(file)));
    EXPECT_NE(desk.prompter.asked[0].details.find(details), std::string::npos)
        << desk.prompter.asked[0].details;
  }
  test::Desk desk;
  EXPECT_TRUE(LoadSurvey(desk.services, test::TestData("bad/windows-1252.sur")));
}

}  // namespace
}  // namespace orvex
