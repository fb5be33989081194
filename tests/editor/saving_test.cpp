#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "editor/editor_desk.h"
#include "editor/load_episodes.h"
#include "editor/save_warning.h"
#include "store/eps_differences.h"
#include "store/eps_reader.h"
#include "store/eps_writer.h"
#include "support/sample_manifest.h"
#include "support/save_faults.h"

namespace orvex {
namespace {

using test::FileBytes;
using test::Segment;
using Rows = std::vector<std::string>;

const char* const kFailed = "The file could not be saved.";
const char* const kChanged = "The file was changed by another program.";

EpisodeList OneEpisode() {
  EpisodeList episodes(1);
  episodes[0].segments = {Segment(5, 10), Segment(11, 20)};
  return episodes;
}

struct SavingTest : testing::Test {
  test::EditorDesk desk;
  test::FaultyStorage storage;
  EpisodeEditor editor = Made();
  const std::string before = FileBytes(desk.file);

  EpisodeEditor Made() {
    test::PutFile(desk.file, test::FileOf(OneEpisode()));
    const Services services = {desk.program, desk.log,      desk.recovery, storage,
                               desk.clock,   desk.prompter, desk.screens,  desk.programFolder};
    return {services, std::move(*LoadEpisodes(services, desk.file).loaded)};
  }
  std::string Edited() const { return test::FileOf(desk.program.Episodes); }
};

struct EditorScene : test::SaveScene {
  explicit EditorScene(bool older) {
    if (!older) std::filesystem::remove(file);
    editor.TypeDescription("A");
  }
  void Save() override {
    const bool saved = editor.Save();
    EXPECT_EQ(editor.Modified(), !saved);
  }
  const std::filesystem::path file = desk.folder / "7-12-3.eps";
  EpisodeEditor editor = [this] {
    test::PutFile(file, test::FileOf(OneEpisode()));
    return EpisodeEditor(services, std::move(*LoadEpisodes(services, file).loaded));
  }();
};

TEST(Saving, IsWholeOrToldOf) {
  test::FailEveryCallOf<EditorScene>("the episode editor");
}

TEST_F(SavingTest, AFailureCanBeSavedElsewhere) {
  editor.TypeDescription("A");
  const auto other = desk.folder / "stick/copy.eps";
  test::PutFile(other, "to be replaced");
  storage.Fail(1, EROFS, "open");
  desk.prompter.Expect(kFailed, Answer::no);
  desk.prompter.ExpectSaveFile({.path = {}, .folder = desk.folder.Path()});
  desk.prompter.Expect(kFailed, Answer::cancel);  // no place was chosen, so the question comes back
  EXPECT_FALSE(editor.Save());
  EXPECT_EQ(desk.prompter.askedSaveFiles[0].defaultName, "7-12-3.eps");
  EXPECT_EQ(desk.prompter.askedSaveFiles[0].folder, desk.file.parent_path());
  EXPECT_EQ(editor.File().Path(), desk.file);

  storage.Fail(1, EROFS, "open");
  desk.prompter.Expect(kFailed, Answer::no);
  desk.prompter.ExpectSaveFile({.path = other, .folder = other.parent_path()});
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(FileBytes(desk.file), before);
  EXPECT_EQ(FileBytes(other), Edited());
  EXPECT_EQ(editor.File().Path(), other);
  EXPECT_FALSE(editor.Modified());
}

TEST_F(SavingTest, AnotherProgramsChangeIsNotReplacedUnasked) {
  editor.TypeDescription("A");
  test::PutFile(desk.file, "theirs");
  desk.prompter.Expect(kChanged, Answer::cancel);
  EXPECT_FALSE(editor.Save());
  EXPECT_EQ(desk.prompter.asked[0].defaultAnswer, Answer::cancel);
  desk.prompter.Expect(kChanged, Answer::no);
  desk.prompter.ExpectSaveFile({});
  desk.prompter.Expect(kChanged, Answer::cancel);
  EXPECT_FALSE(editor.Save());
  EXPECT_EQ(FileBytes(desk.file), "theirs");
  EXPECT_TRUE(editor.Modified());
  desk.prompter.Expect(kChanged, Answer::yes);
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(FileBytes(desk.file), Edited());
  // A deleted file is written again.
  std::filesystem::remove(desk.file);
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(FileBytes(desk.file), Edited());
}

TEST_F(SavingTest, AFileThatCannotBeReadOrReplacedIsToldAsThat) {
  editor.TypeDescription("A");
  std::filesystem::remove(desk.file);
  std::filesystem::create_directory(desk.file);
  desk.prompter.Expect(kFailed, Answer::cancel);
  EXPECT_FALSE(editor.Save());
  EXPECT_EQ(desk.prompter.asked.back().details,
            desk.file.string() + ": it can no longer be read: Is a directory");

  std::filesystem::remove(desk.file);
  test::PutFile(desk.file, before);
  std::filesystem::permissions(desk.file, std::filesystem::perms::owner_read);
  desk.prompter.Expect("This file is write-protected. Changes can only be saved elsewhere.",
                       Answer::ok);
  EXPECT_TRUE(LoadEpisodes(desk.services, desk.file).loaded);
  desk.prompter.Expect(kFailed, Answer::cancel);
  EXPECT_FALSE(editor.Save());
  EXPECT_EQ(FileBytes(desk.file), before);
}

TEST_F(SavingTest, TheClassAsItWasObservedStaysBesideTheFirstEditsForGood) {
  const std::filesystem::path observed = desk.file.string() + ".observed";
  editor.TypeDescription("A");
  EXPECT_FALSE(std::filesystem::exists(observed));
  storage.Fail(1, ENOSPC, "write");
  desk.prompter.Expect(kFailed, Answer::cancel);
  EXPECT_FALSE(editor.Save());
  EXPECT_NE(desk.prompter.asked.back().details.find(".observed: No space left"), std::string::npos);
  EXPECT_EQ(FileBytes(desk.file), before) << "not replaced without it";
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(FileBytes(observed), before);
  editor.TypeDescription("B");
  EXPECT_TRUE(editor.Save());
  desk.Open(desk.file).TypeDescription("C");
  EXPECT_TRUE(desk.editor->Save());
  EXPECT_EQ(FileBytes(observed), before);
}

TEST_F(SavingTest, QuittingSavesOnlyWhenToldTo) {
  editor.TypeDescription("A");
  desk.prompter.Expect("Save Data?", Answer::no);
  desk.prompter.Expect("Edit Another File?", Answer::no);
  editor.Quit();
  EXPECT_EQ(desk.prompter.asked[0].defaultAnswer, Answer::yes);
  EXPECT_EQ(desk.prompter.asked[1].defaultAnswer, Answer::no);
  EXPECT_EQ(desk.screens.Take(), Rows{"end"});
  EXPECT_EQ(FileBytes(desk.file), before);

  desk.prompter.Expect("Save Data?", Answer::yes);
  storage.Fail(1, EIO, "write");
  desk.prompter.Expect(kFailed, Answer::cancel);
  editor.Quit();
  EXPECT_TRUE(desk.screens.Take().empty());
  EXPECT_EQ(editor.View().description, "A");
}

TEST_F(SavingTest, QuittingLeadsBackToTheStudyWithoutAskingForAnotherFile) {
  desk.screens.studyIsOpen = true;
  editor.TypeDescription("A");
  desk.prompter.Expect("Save Data?", Answer::cancel);
  editor.Quit();
  EXPECT_TRUE(desk.screens.Take().empty());
  desk.prompter.Expect("Save Data?", Answer::yes);
  editor.Quit();
  EXPECT_EQ(desk.screens.Take(), Rows{"back to the study"});
  EXPECT_EQ(EpisodeEditor(desk.services, std::move(*LoadEpisodes(desk.services, desk.file).loaded))
                .View()
                .description,
            "A");
}

TEST_F(SavingTest, QuittingForAnotherFileBeginsAnew) {
  editor.TypeDescription("A");
  test::ClickSegment(editor, 2);
  editor.Cut();
  desk.prompter.Expect("Save Data?", Answer::yes);
  desk.prompter.Expect("Edit Another File?", Answer::yes);
  desk.prompter.ExpectFile({.path = desk.folder / "none.eps", .folder = desk.folder.Path()});
  desk.prompter.Expect("The file could not be read.", Answer::ok,
                       [&] { EXPECT_TRUE(editor.EpisodeRows().empty()); });
  desk.prompter.ExpectFile({.path = desk.file, .folder = desk.file.parent_path()});
  editor.Quit();
  EXPECT_TRUE(desk.screens.Take().empty());
  EXPECT_EQ(desk.program.DataPath, desk.file.parent_path());
  EXPECT_EQ(editor.View().description, "A");
  EXPECT_EQ(editor.Selection().segment, 1);
  EXPECT_FALSE(editor.IsCut(2));
  EXPECT_EQ(editor.StepName(Way::undo), "");
  EXPECT_FALSE(editor.Modified());

  desk.prompter.Expect("Save Data?", Answer::no);
  desk.prompter.Expect("Edit Another File?", Answer::yes);
  desk.prompter.ExpectFile({});
  editor.Quit();
  EXPECT_EQ(desk.prompter.asked.rbegin()[1].defaultAnswer, Answer::no) << "nothing was changed";
  EXPECT_EQ(desk.screens.Take(), Rows{"end"});
}

/// The warning about a file that saving would change.
std::optional<Message> ToldOf(const std::filesystem::path& file) {
  struct SilentReading : EpsReadEvents {
    bool ContinueWithEarlierVersion() override { return true; }
    void FirstSegmentRepaired(int /*ep*/) override {}
  } silent;
  return SaveWarning(DifferencesOf(FileBytes(file), ReadEpsFile(file, silent)), file);
}

TEST(Opening, DoesWithBadFilesWhatTheirManifestSays) {
  const auto folder = test::SamplesFolder() / "bad";
  const auto samples = test::BadSamples(".eps");
  ASSERT_GE(samples.size(), 100U);
  for (const auto& sample : samples) {
    if (!std::filesystem::is_regular_file(folder / sample.file)) continue;
    SCOPED_TRACE(sample.file);
    test::Desk desk;
    desk.program.Episodes.resize(1);
    bool repaired = false;
    for (const std::string& message : sample.messages) {
      desk.prompter.Expect(message, Answer::ok);
      repaired |= message.starts_with("An inconsistency");
    }
    if (sample.accepted) {
      const auto told = ToldOf(folder / sample.file);
      const bool staysItself =
          FileBytes(folder / sample.file) == FileBytes(folder / "rewritten" / sample.file);
      EXPECT_FALSE(staysItself && told);
      if (told) desk.prompter.Expect(told->text, Answer::ok);
    }
    LoadOutcome outcome = LoadEpisodes(desk.services, folder / sample.file);
    EXPECT_EQ(desk.program.Episodes, EpisodeList(1));
    EXPECT_EQ(outcome.loaded.has_value(), sample.accepted);
    EXPECT_EQ(desk.screens.Take(), sample.accepted ? Rows{} : Rows{"end"});
    if (!outcome.loaded) {
      const std::string& details = desk.prompter.asked.back().details;
      EXPECT_FALSE(details.empty());
      if (sample.file == "segments-40000.eps") {
        EXPECT_NE(
            details.find("line 6, field 6: expected the number of segments from -32768 to 32767"),
            std::string::npos);
      }
      continue;
    }
    const std::string rewritten =
        FormatEps(outcome.loaded->file.Header(), outcome.loaded->episodes);
    EXPECT_EQ(rewritten, FileBytes(folder / "rewritten" / sample.file));
    EXPECT_EQ(test::FileOf(test::ReadBack(rewritten)), test::FileOf(outcome.loaded->episodes));
    const EpisodeEditor editor(desk.services, std::move(*outcome.loaded));
    EXPECT_EQ(editor.Modified(), repaired);
  }
}

TEST(Opening, AnEarlierVersionDeclinedEndsTheProgram) {
  test::Desk desk;
  desk.prompter.Expect("EPS file created by an earlier version of ORVEX. Continue anyway?",
                       Answer::cancel);
  const auto file = test::TestData("bad/banner-old-and-cut.eps");
  EXPECT_FALSE(LoadEpisodes(desk.services, file).loaded);
  EXPECT_EQ(desk.prompter.asked[0].buttons, Buttons::okCancel);
  EXPECT_EQ(desk.screens.Take(), Rows{"end"});
  desk.screens.studyIsOpen = true;
  desk.prompter.Expect("EPS file created by an earlier version of ORVEX. Continue anyway?",
                       Answer::cancel);
  EXPECT_FALSE(LoadEpisodes(desk.services, file).loaded);
  EXPECT_EQ(desk.screens.Take(), Rows{"back to the study"});
}

TEST(Opening, FromTheMenuTheEditorTakesItsPlace) {
  test::Desk desk;
  const auto file = desk.folder / "EPS/7-12-3.eps";
  const auto open = [&](const std::filesystem::path& path) {
    desk.prompter.ExpectFile({.path = path, .folder = file.parent_path()});
    return EditChosenEpisodes(desk.services);
  };
  EXPECT_FALSE(open({}));
  EXPECT_TRUE(desk.screens.Take().empty());
  EXPECT_EQ(desk.prompter.askedFiles[0].filter, "EPS files (*.EPS)|*.EPS");
  EXPECT_NE(desk.program.DataPath, file.parent_path());
  EXPECT_TRUE(open(file));
  EXPECT_EQ(desk.program.DataPath, file.parent_path());
  EXPECT_EQ(desk.screens.Take(), (Rows{"show episode editor for 7-12-3.eps", "close mainMenu"}));
  desk.screens.episodeFileIsGood = false;
  EXPECT_FALSE(open(file));
  EXPECT_EQ(desk.screens.Take(), Rows{"show episode editor for 7-12-3.eps"});
}

}  // namespace
}  // namespace orvex
