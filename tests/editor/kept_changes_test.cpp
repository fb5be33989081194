// Unsaved changes to a file, and what happens to them when the program ends.

#include "recovery/kept_changes.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "editor/editor_desk.h"
#include "recovery/kept_content.h"
#include "recovery/unfinished_file.h"
#include "start/field_notes_file.h"
#include "survey/survey_form.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

class KeptChangesTest : public testing::Test {
 protected:
  static EpisodeList OneEpisode() {
    EpisodeList episodes(1);
    episodes[0].Descript = "Warm-up";
    episodes[0].segments = {test::Segment(5, 60)};
    return episodes;
  }

  /// Changes the file in the editor, then ends the program like a crash.
  void ChangeAndCrash(const char* description) {
    EpisodeEditor& editor = desk.Open(desk.file);
    editor.TypeDescription(description);
    editor.Keep();
    desk.editor.reset();
  }
  /// Opens the file again, answering the question with `answer`. Null when it was not opened.
  EpisodeEditor* Reopen(Answer answer, const std::string& since = "") {
    desk.prompter.Expect(
        "7-12-3.eps was changed on 03-14-2001 at 09:00:00, and the changes were not saved." + since,
        answer);
    desk.editor.reset();
    LoadOutcome outcome = LoadEpisodes(desk.services, desk.file);
    if (!outcome.loaded) return nullptr;
    desk.editor = std::make_unique<EpisodeEditor>(desk.services, std::move(*outcome.loaded));
    return desk.editor.get();
  }
  std::vector<fs::path> Kept() const { return KeptPathsIn(desk.file.parent_path()); }

  test::EditorDesk desk;
  const std::string before = test::FileOf(OneEpisode());
  const fs::path recovery = RecoveryPathBeside(desk.file);
  void SetUp() override { test::PutFile(desk.file, before); }
};

TEST_F(KeptChangesTest, AreTakenUpDiscardedOrLeftWhenTheFileIsOpenedAgain) {
  ChangeAndCrash("A \\ caf\u00e9");
  EXPECT_EQ(test::FileBytes(desk.file), before);
  EXPECT_EQ(Reopen(Answer::cancel), nullptr);
  EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::yes) << "Enter loses nothing";
  EXPECT_EQ(Kept(), std::vector{recovery});

  EpisodeEditor* editor = Reopen(Answer::yes);
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->View().description, "A \\ caf\u00e9");
  EXPECT_TRUE(editor->Modified());
  // The changes stay kept, along with new ones.
  editor->TypeDescription("B");
  editor->Keep();
  ASSERT_NE(editor = Reopen(Answer::yes), nullptr);
  EXPECT_EQ(editor->View().description, "B");
  EXPECT_TRUE(editor->Save());
  EXPECT_EQ(test::FileBytes(desk.file), test::FileOf(desk.program.Episodes));
  EXPECT_EQ(test::FileBytes(desk.file.string() + ".observed"), before);
  EXPECT_EQ(Kept(), std::vector<fs::path>{});

  ChangeAndCrash("C");
  ASSERT_NE(editor = Reopen(Answer::no), nullptr);
  EXPECT_EQ(editor->View().description, "B");
  EXPECT_EQ(Kept(), std::vector<fs::path>{});
}

TEST_F(KeptChangesTest, AreNotKeptOnceThereAreNone) {
  EpisodeEditor& editor = desk.Open(desk.file);
  const auto change = [&] {
    editor.TypeDescription("A");
    editor.Keep();
    editor.AwaitKept();
    EXPECT_EQ(Kept(), std::vector{recovery});
  };
  // All changes have been undone.
  change();
  const KeptContent kept = ReadKept(recovery);
  editor.TakeStep(Way::undo);
  editor.Keep();
  desk.editor.reset();
  EXPECT_EQ(Kept(), std::vector<fs::path>{});
  // The file was saved, but the program was killed before the kept changes were removed.
  EpisodeEditor& again = desk.Open(desk.file);
  again.TypeDescription("A");
  EXPECT_TRUE(again.Save());
  desk.editor.reset();
  test::PutFile(recovery, Sealed(kept.content, kept.number));
  desk.Open(desk.file);
  EXPECT_EQ(Kept(), std::vector<fs::path>{});
  // The changes were discarded.
  desk.editor->TypeDescription("B");
  desk.editor->AwaitKept();
  EXPECT_EQ(Kept(), std::vector{recovery});
  desk.prompter.Expect("Save Data?", Answer::no);
  desk.prompter.Expect("Edit Another File?", Answer::no);
  desk.editor->Quit();
  EXPECT_EQ(Kept(), std::vector<fs::path>{});
  EXPECT_TRUE(UnfinishedFiles(desk.services).empty());
}

TEST_F(KeptChangesTest, OfAFileThatWasChangedSinceAreToldAndReplaceNothingUnasked) {
  ChangeAndCrash("A");
  test::PutFile(desk.file, "theirs");
  EpisodeEditor* editor =
      Reopen(Answer::yes, "\n\nThe file itself has been changed by another program since then.");
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->View().description, "A");
  desk.prompter.Expect("The file was changed by another program.", Answer::cancel);
  EXPECT_FALSE(editor->Save());
  EXPECT_EQ(test::FileBytes(desk.file), "theirs");
  // An emptied file has been changed, too.
  test::PutFile(desk.file, "");
  desk.prompter.Expect("The file was changed by another program.", Answer::cancel);
  EXPECT_FALSE(editor->Save());

  fs::remove(desk.file);
  ASSERT_NE(editor = Reopen(Answer::yes, "\n\nThe file itself is gone since then."), nullptr);
  EXPECT_TRUE(editor->Save());
  EXPECT_EQ(test::FileBytes(desk.file), test::FileOf(desk.program.Episodes));
}

TEST_F(KeptChangesTest, AreAnotherOrvexsWhileItRuns) {
  desk.Open(desk.file).TypeDescription("A");
  desk.editor->AwaitKept();
  EXPECT_TRUE(UnfinishedFiles(desk.services).empty());
  // Another program opens the same file: it does not ask, and does not replace these changes.
  LoadOutcome outcome = LoadEpisodes(desk.services, desk.file);
  ASSERT_TRUE(outcome.loaded);
  EpisodeEditor other(desk.services, std::move(*outcome.loaded));
  other.TypeDescription("B");
  other.Keep();
  EXPECT_NE(other.File().KeepTrouble().find("in use by another Orvex"), std::string::npos);
  EXPECT_NE(ReadKeptChanges(desk.file).bytes.value_or("").find("\r\nA\r\n"), std::string::npos);
}

TEST_F(KeptChangesTest, AreOfferedAtTheNextStartWhereverTheFilesLie) {
  ChangeAndCrash("A");
  const fs::path survey = desk.folder / "elsewhere/5-12-3.sur";
  test::PutFile(survey, FormatSur({.identity = {"", "5", "12", "3", ""}, .answers = {}}));
  {
    SurveyForm form(desk.services, *LoadSurvey(desk.services, survey));
    form.Rate(3, 2);
    form.AwaitKept();
  }
  const fs::path notes = desk.folder / "elsewhere/5-12-3.nte";
  test::PutFile(notes, "caf\xE9\r\n");
  const auto endsWhile = [&](const char* text) {
    desk.prompter.ExpectNotes(std::nullopt, [=](const NotesPrompt& prompt) { prompt.typed(text); });
  };
  endsWhile("caf\u00e9 and more");
  EditFieldNotes(desk.services, notes);
  EXPECT_EQ(test::FileBytes(notes), "caf\xE9\r\n");

  const std::vector<Unfinished> all = UnfinishedFiles(desk.services);
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(all[0].item.what, "7-12-3.eps has changes that were not saved");
  EXPECT_EQ(all[1].item.extent, "changed on 03-14-2001 at 09:00:00");
  EXPECT_EQ(all[1].item.place, (desk.folder / "elsewhere").string());
  EXPECT_TRUE(all[0].takeUp());
  EXPECT_EQ(desk.screens.Take(),
            (std::vector<std::string>{"show episode editor for 7-12-3.eps", "close mainMenu"}));
  // The notes are back in their dialog.
  EXPECT_FALSE(all[1].takeUp());
  EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{"show field notes 5-12-3.nte"});
  endsWhile("caf\u00e9 and much more");
  EditFieldNotes(desk.services, notes, Kept::areTakenUp);
  EXPECT_EQ(desk.prompter.askedNotes.back(), "caf\u00e9 and more");
  desk.prompter.ExpectNotes("caf\u00e9!");
  EditFieldNotes(desk.services, notes, Kept::areTakenUp);
  EXPECT_EQ(desk.prompter.askedNotes.back(), "caf\u00e9 and much more");
  EXPECT_EQ(test::FileBytes(notes), "caf\xE9!\r\n");
  EXPECT_TRUE(all[2].takeUp());
  EXPECT_EQ(desk.program.DataPath, survey.parent_path()) << "where it is saved";
  SurveyForm form(desk.services, *LoadSurvey(desk.services, survey, Kept::areTakenUp));
  EXPECT_EQ(form.Answers().ratings[3], 2);
  form.Save();
  all[0].close();
  EXPECT_EQ(test::FileBytes(desk.file), before);
  EXPECT_TRUE(UnfinishedFiles(desk.services).empty());
}

}  // namespace
}  // namespace orvex
