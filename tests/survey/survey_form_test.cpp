#include "survey/survey_form.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/desk.h"
#include "support/faulty_storage.h"
#include "support/save_faults.h"
#include "survey/load_survey.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;
using Moves = std::vector<std::string>;

const Identity kIdentity = {"", "5", "12", "3", ""};

TEST(SurveyOfTheClass, ChangesTheAnswersOfTheClassAndWritesNothing) {
  test::Desk desk;
  Survey answers;
  const auto fill = [&answers](const Survey& filled) { answers = filled; };
  SurveyForm form(desk.services, answers, fill, SurveyCaller::liveObservation);
  form.TypeOther("lost");
  form.SetCheck(0, kOtherItem, true);
  EXPECT_EQ(answers.other, "") << "the box was not there for a text yet";
  form.TypeOther("portfolio");
  form.SetCheck(0, kOtherItem, false);
  form.TypeOther("lost");
  EXPECT_EQ(answers.other, "portfolio");
  form.ReturnToCaller();
  EXPECT_EQ(desk.screens.Take(), (Moves{"show liveObservation", "hide survey"}));
  form.SetCaller(SurveyCaller::questionEntry);
  form.Leave();
  EXPECT_EQ(desk.screens.Take(), (Moves{"show questionEntry", "hide survey"}));
  form.Quit();
  EXPECT_EQ(desk.screens.Take(), Moves{}) << "there is no E&xit during the class";
  EXPECT_TRUE(fs::is_empty(desk.folder.Path()));
}

SurFile Portfolio() {
  SurFile file = {.identity = kIdentity, .answers = {}, .encoding = Encoding::windows1252};
  file.answers.checks[0].set(kOtherItem);
  file.answers.other = "caf\u00e9";
  return file;
}

TEST(SurveyOnAFile, IsSavedUnderItsNumbersInItsSpellingUntilItIsSavedElsewhere) {
  test::Desk desk;
  test::FaultyStorage disk;
  const Services services{desk.program, desk.log,      desk.recovery, disk,
                          desk.clock,   desk.prompter, desk.screens,  desk.programFolder};
  SurFile file = Portfolio();
  SurveyForm form(services, file);
  EXPECT_EQ(form.ClassIdText(), "Class ID 5-12-3");
  form.Rate(15, 4);
  file.answers.ratings[15] = 4;
  form.Save();
  EXPECT_EQ(test::FileBytes(desk.folder / "5-12-3.sur"), FormatSur(file));
  EXPECT_EQ(form.SavedText(), "Saved as " + (desk.folder / "5-12-3.sur").string());
  EXPECT_EQ(desk.screens.Take(), Moves{}) << "the form stays open";

  form.Rate(15, 3);
  disk.Fail(1, ENOSPC, "write");
  desk.prompter.Expect("Save changes?", Answer::yes);
  desk.prompter.Expect("The survey could not be written.", Answer::cancel);
  form.Quit();
  EXPECT_EQ(form.SavedText(), "");
  disk.Fail(1, ENOSPC, "write");
  const fs::path other = desk.folder / "stick/mine.sur";
  test::PutFile(other, "");
  desk.prompter.Expect("The survey could not be written.", Answer::no);
  desk.prompter.ExpectSaveFile({.path = other, .folder = other.parent_path()});
  form.Save();
  form.Rate(15, 2);
  form.Save();
  EXPECT_EQ(form.SavedText(), "Saved as " + other.string());
  EXPECT_EQ(test::FileBytes(desk.folder / "5-12-3.sur"), FormatSur(file));
  file.answers.ratings[15] = 2;
  EXPECT_EQ(test::FileBytes(other), FormatSur(file));
}

TEST(SurveyOnAFile, LeadsBackToTheStudyItWasOpenedFrom) {
  test::Desk desk;
  desk.screens.studyIsOpen = true;
  SurveyForm form(desk.services, Portfolio());
  for (const Answer save : {Answer::cancel, Answer::yes}) {
    desk.prompter.Expect("Save changes?", save);
    form.Quit();
  }
  EXPECT_EQ(desk.screens.Take(), Moves{"back to the study"});
}

TEST(SurveyOnAFile, KeepsWhatLiesUnderItsNumbersWhenItHasAnotherName) {
  test::Desk desk;
  const fs::path misnamed = desk.folder / "9-9-9.sur";
  const fs::path another = desk.folder / "5-12-3.sur";
  test::PutFile(misnamed, FormatSur({.identity = kIdentity, .answers = {}}));
  test::PutFile(another, "another survey");
  auto loaded = LoadSurvey(desk.services, misnamed, Kept::areOffered);
  ASSERT_TRUE(loaded);
  SurveyForm form(desk.services, std::move(*loaded));
  for (int rating : {1, 2}) {
    form.Rate(15, rating);
    form.Save();
  }
  int kept = 0;
  for (const auto& file : fs::directory_iterator(desk.folder.Path())) {
    kept += test::FileBytes(file.path()) == "another survey" ? 1 : 0;
  }
  EXPECT_EQ(kept, 1);
  EXPECT_NE(test::FileBytes(another), "another survey");
}

TEST(SurveyOnAFile, AnotherProgramsChangeIsNotReplacedUnasked) {
  test::Desk desk;
  const fs::path path = desk.folder / "5-12-3.sur";
  test::PutFile(path, FormatSur({.identity = kIdentity, .answers = {}}));
  SurveyForm form(desk.services, std::move(*LoadSurvey(desk.services, path, Kept::areOffered)));
  form.Rate(15, 1);
  EXPECT_TRUE(form.Save());
  test::PutFile(path, "theirs");
  form.Rate(15, 2);
  desk.prompter.Expect("The file was changed by another program.", Answer::cancel);
  EXPECT_FALSE(form.Save());
  EXPECT_EQ(test::FileBytes(path), "theirs");
  desk.prompter.Expect("The file was changed by another program.", Answer::yes);
  EXPECT_TRUE(form.Save());
  EXPECT_EQ(test::FileBytes(path), FormatSur({.identity = kIdentity, .answers = form.Answers()}));
}

struct SurveyFileScene : test::SaveScene {
  explicit SurveyFileScene(bool older) {
    if (older) test::PutFile(desk.folder / "5-12-3.sur", "the old survey\r\n");
  }
  void Save() override { form.Save(); }
  SurveyForm form{services, Portfolio()};
};

TEST(SurveyOnAFile, IsSavedWholeOrToldOf) {
  test::FailEveryCallOf<SurveyFileScene>("the survey form on a file");
}

TEST(SurveyOnAFile, ExitEndsTheProgramOrGoesOnToAnotherFile) {
  const std::string menu = "show mainMenu|close survey|";
  const std::string shown = menu + "show survey file 7-1-1.sur|";
  const std::tuple<Answer, Answer, const char*, bool, std::string> cases[] = {
      {Answer::yes, Answer::no, "", true, "end|"},
      {Answer::no, Answer::yes, "", true, menu + "end|"},
      {Answer::yes, Answer::yes, "/7-1-1.sur", true, shown + "close mainMenu|"},
      {Answer::no, Answer::yes, "/7-1-1.sur", false, shown},
  };
  for (const auto& [save, another, chosen, readable, expected] : cases) {
    test::Desk desk;
    desk.screens.surveyFileIsGood = readable;
    SurveyForm form(desk.services, SurFile{.identity = kIdentity, .answers = {}});
    desk.prompter.Expect("Save changes?", save);
    desk.prompter.Expect("Edit Another File?", another);
    if (another == Answer::yes) desk.prompter.ExpectFile({.path = chosen, .folder = "/"});
    form.Leave();
    std::string moves;
    for (const std::string& move : desk.screens.Take()) moves += move + "|";
    EXPECT_EQ(moves, expected);
    EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::no);
    EXPECT_EQ(fs::exists(desk.folder / "5-12-3.sur"), save == Answer::yes);
    if (another == Answer::no) continue;
    EXPECT_EQ(desk.prompter.askedFiles[0].folder, desk.folder.Path());
    EXPECT_EQ(desk.program.DataPath, chosen[0] == '\0' ? desk.folder.Path() : "/");
  }
}

TEST(LoadingASurveyFile, TellsWhereItIsWrongOrWhyItCannotBeRead) {
  const std::pair<std::string, std::string> cases[] = {
      {"rating3-is-4.sur", ", line 30: expected a button number from 0 to 3, found \"4\""},
      {"rating16-is-5.sur", ", line 44: expected a button number from 0 to 4, found \"5\""},
      {"identity-is-a_b_c.sur",
       ", line 2, field 1: expected the school number from 0 to 32767, found \"a\""},
      {"without-rating25.sur", ", line 53: expected a rating, not the end of the file"},
      {"not-there.sur", ": No such file or directory"},
  };
  for (const auto& [file, why] : cases) {
    test::Desk desk;
    desk.prompter.Expect("Invalid file format", Answer::ok);
    const fs::path path = test::TestData("bad/" + file);
    EXPECT_FALSE(LoadSurvey(desk.services, path));
    EXPECT_EQ(desk.prompter.asked[0].details, path.string() + why);
  }
}

}  // namespace
}  // namespace orvex
