#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "observe/live_observation.h"
#include "recovery/kept_class.h"
#include "recovery/kept_content.h"
#include "recovery/unfinished_class.h"
#include "store/older_file.h"
#include "support/desk.h"
#include "support/save_faults.h"

namespace orvex {
namespace {

using test::FileBytes;

/// A disk that is full as long as `full` is set.
struct FullDisk : Storage {
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) override {
    if (!full) return Storage::Write(descriptor, bytes, count);
    errno = ENOSPC;
    return -1;
  }
  bool full = false;
};

struct EndOfClassTest : testing::Test {
  void TeachOneSegment() {
    live.KeyInDescription();
    live.TypeDescription("Poems");
    live.ChooseActivity(3);
    desk.clock.Advance(600);
  }

  FullDisk disk;
  test::Desk desk;
  SessionLog log{disk, desk.clock};
  Services services{desk.program, log,           desk.recovery, disk,
                    desk.clock,   desk.prompter, desk.screens,  desk.programFolder};
  LiveObservation live = [this] {
    desk.OpenLog();
    log.File().Open(desk.folder / "BAK/7/12/7-12-3.bak");
    return LiveObservation(services);
  }();
};

const std::string kNotWritten =
    "The data files could not be written. The class is still in memory.";

const std::string kNotCompleted =
    "The class is stored, but the session log could not be completed.";

const std::string kFinished = "Have you finished Matrices?";

TEST_F(EndOfClassTest, TheSurveyWaitsUntilItIsFilledInAndCanBeWritten) {
  TeachOneSegment();
  live.ShowPicture();  // not before the end
  EXPECT_TRUE(desk.screens.Take().empty());
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(kFinished, Answer::no);
  live.EndClass();
  EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::no) << "an Enter too many";
  EXPECT_TRUE(live.Running().awaitsSurvey);
  const std::string stored = FileBytes(desk.folder / "EPS/7/12/7-12-3.eps");
  const std::string logged = FileBytes(desk.folder / "BAK/7/12/7-12-3.bak");
  EXPECT_TRUE(logged.ends_with("\r\n\r\nLOG OFF: 09:10:00\r\n")) << logged;
  live.OpenSurvey();
  EXPECT_EQ(desk.screens.Take(), (std::vector<std::string>{"close aboutText", "show survey for 0",
                                                           "hide liveObservation"}));
  live.ShowPicture();
  EXPECT_EQ(desk.screens.Take(),
            (std::vector<std::string>{"show classPicture of 7-12-3.eps", "hide liveObservation"}));
  Survey answers;
  answers.ratings[0] = 2;
  live.FillSurvey(answers);

  // The answers wait for the next attempt, no matter whether "E&xit" is pressed or the window
  // closed.
  disk.full = true;
  for (int i = 0; i < 2; ++i) {
    desk.prompter.Expect("The survey could not be written.", Answer::cancel);
    if (i == 0) live.EndClass();
    EXPECT_TRUE(i == 0 || !live.RequestClose());
    EXPECT_TRUE(desk.screens.Take().empty());
  }
  disk.full = false;
  desk.clock.Advance(60);
  live.EndClass();
  EXPECT_EQ(desk.screens.Take(), (std::vector<std::string>{"close survey", "end"}));
  EXPECT_NE(FileBytes(desk.folder / "SUR/7/12/7-12-3.sur").find("\r\n7, 12, 3\r\nMATRICES\r\n"),
            std::string::npos);
  EXPECT_EQ(FileBytes(desk.folder / "EPS/7/12/7-12-3.eps"), stored);
  EXPECT_EQ(FileBytes(desk.folder / "BAK/7/12/7-12-3.bak"), logged);
}

TEST_F(EndOfClassTest, AHeaderThatNamesNoFilesIsToldBeforeAnythingEnds) {
  TeachOneSegment();
  live.TypeHeader(HeaderBox::classNum, "12x");
  desk.prompter.Expect("School, class and observation must be numbers from 0 to 32767.",
                       Answer::ok);
  live.EndClass();
  EXPECT_EQ(live.TakeFocus()->control.box, HeaderBox::classNum);
  EXPECT_TRUE(live.CurrentEpisode().segments.empty());
}

TEST_F(EndOfClassTest, ARefusedEndLeavesNoTraceInTheEpisodeBefore) {
  TeachOneSegment();
  desk.prompter.Expect("Start New Episode?", Answer::yes);
  live.AskToStartEpisode();
  live.KeyInDescription();
  live.TypeDescription("More poems");
  disk.full = true;
  live.ChooseActivity(9);
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(kNotWritten, Answer::yes);
  desk.prompter.Expect(kNotWritten, Answer::cancel);
  live.EndClass();
  EXPECT_EQ(desk.prompter.asked[1].defaultAnswer, Answer::no);
  EXPECT_NE(desk.prompter.asked.back().details.find("7-12-3.eps: No space left on device"),
            std::string::npos);
  EXPECT_TRUE(log.File().IsOpen() && !desk.program.ClassStored);
  disk.full = false;
  live.Convert();
  EXPECT_EQ(live.Running().curSegment, 2);
  EXPECT_EQ(live.Running().curActivity, 9);
  EXPECT_EQ(log.File().Trouble(), "");
  EXPECT_NE(FileBytes(log.File().Path()).find("***** CLASS NOT ENDED, IT GOES ON *****"),
            std::string::npos);
  desk.clock.Advance(60);
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(kFinished, Answer::yes);
  live.EndClass();
  const std::string stored = FileBytes(desk.folder / "EPS/7/12/7-12-3.eps");
  EXPECT_NE(stored.find(" 9 , 60 \r\n"), std::string::npos) << stored;
}

TEST_F(EndOfClassTest, AClassStoredElsewhereHasItsNotesAndItsSurveyThere) {
  TeachOneSegment();
  const auto stick = desk.folder / "stick";
  for (const char* file : {"taken.nte", "taken.sur"}) test::PutFile(stick / file, "another class");
  const auto choose = [&](const char* name) {
    desk.prompter.Expect(kNotWritten, Answer::no);
    desk.prompter.ExpectSaveFile({.path = name == nullptr ? "" : stick / name, .folder = stick});
  };
  std::filesystem::remove_all(desk.folder / "BAK");
  for (const char* file : {"BAK", "EPS"}) test::PutFile(desk.folder / file, "in the way");
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  choose(nullptr);
  choose("taken.eps");
  desk.prompter.Expect("taken.nte already exists. Replace it?", Answer::no);
  choose("x.nte");
  desk.prompter.Expect(kNotCompleted, Answer::cancel);
  desk.prompter.Expect(kFinished, Answer::no);
  live.EndClass();
  EXPECT_EQ(desk.prompter.askedSaveFiles[0].defaultName, "7-12-3.eps");
  EXPECT_NE(FileBytes(stick / "x.nte").find(" 3 , 600 ,"), std::string::npos);
  EXPECT_EQ(FileBytes(stick / "x.nte.nte"), "\r\n");
  desk.screens.Take();
  live.ShowPicture();
  EXPECT_EQ(desk.screens.Take().front(), "show classPicture of x.nte");
  live.EndClass();
  EXPECT_NE(FileBytes(stick / "x.nte.sur").find("MATRICES"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(desk.folder / "SUR"));
  EXPECT_EQ(FileBytes(stick / "taken.nte"), "another class");
}

TEST_F(EndOfClassTest, AnotherClassOfTheSameNumbersKeepsItsFiles) {
  TeachOneSegment();
  const auto eps = desk.folder / "EPS/7/12/7-12-3.eps";
  const auto nte = desk.folder / "NTE/7/12/7-12-3.nte";
  test::PutOldFile(eps, "another class");
  test::PutFile(eps.string() + ".observed", "before it was edited");
  test::PutFile(nte, "\r\n");  // does not matter, as its content is the same
  std::filesystem::create_directories(desk.folder / "SUR/7/12/7-12-3.sur");
  // A number that is still being typed does not count.
  live.TypeHeader(HeaderBox::observNum, "4");
  test::PutFile(desk.folder / "BAK/7/12/7-12-4.bak", "a third class");
  desk.prompter.Expect("7-12-4.bak already exists. Overwrite it?", Answer::cancel);
  live.EndClass();
  EXPECT_EQ(live.TakeFocus()->control.box, HeaderBox::observNum);
  EXPECT_FALSE(std::filesystem::exists(desk.folder / "EPS/7/12/7-12-4.eps"));
  live.TypeHeader(HeaderBox::observNum, "3");

  std::string older = OlderName(eps);
  EXPECT_TRUE(older.starts_with("7-12-3 2") && older.ends_with(".eps")) << older;
  test::PutFile(eps.parent_path() / older, "a class of the same minute");
  older = OlderName(eps);
  EXPECT_TRUE(older.ends_with(" 2.eps")) << older;
  const std::string kept =
      "There was another class of these numbers. What was there is kept as\n\n";
  desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
  desk.prompter.Expect(kept + older, Answer::ok);
  desk.prompter.Expect(kFinished, Answer::no);
  live.EndClass();
  EXPECT_EQ(FileBytes(eps.parent_path() / older), "another class");
  EXPECT_EQ(FileBytes(eps.parent_path() / (older + ".observed")), "before it was edited");
  EXPECT_FALSE(std::filesystem::exists(eps.string() + ".observed"));
  EXPECT_NE(FileBytes(eps).find(" 3 , 600 "), std::string::npos);
}

TEST_F(EndOfClassTest, ItsOwnFilesAreReplacedUnlessTheyWereEditedSince) {
  TeachOneSegment();
  const auto eps = desk.folder / "EPS/7/12/7-12-3.eps";
  test::PutFile(desk.folder / "NTE", "in the way of a folder");
  for (const char* edited : {"", "edited"}) {
    desk.clock.Advance(60);
    if (*edited != '\0') test::PutFile(eps, edited);
    desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
    desk.prompter.Expect(kNotWritten, Answer::cancel);
    if (*edited != '\0') {
      desk.prompter.Expect(
          "There was another class of these numbers. What was there is kept as\n\n" +
              OlderName(eps),
          Answer::ok);
    }
    live.EndClass();
    if (*edited != '\0') continue;
    desk.clock.Advance(60);
    desk.prompter.Expect("Verify END OF CLASS", Answer::yes);
    desk.prompter.Expect(kNotWritten, Answer::cancel);
    live.EndClass();
    EXPECT_NE(FileBytes(eps).find(" 3 , 720 "), std::string::npos);
  }
}

struct ClassScene : test::SaveScene {
  explicit ClassScene(bool older) {
    for (const char* file : {"EPS/7/12/7-12-3.eps", "NTE/7/12/7-12-3.nte", "SUR/7/12/7-12-3.sur"}) {
      if (older) test::PutOldFile(desk.folder / file, "the old file");
    }
    prompter.typed = "a note";
    live.KeyInDescription();
    live.TypeDescription("Poems");
    live.ChooseActivity(3);
    live.EditFieldNotes();
    desk.clock.Advance(600);
  }
  void Save() override {
    live.EndClass();
    EXPECT_TRUE(prompter.reaction != test::Reaction::tryAgain ||
                FileBytes(log.File().Path()).ends_with("\r\n\r\nLOG OFF: 09:10:00\r\n"));
  }
  LiveObservation live = [this] {
    desk.program.identity = {"AB", "7", "12", "3", "25"};
    std::filesystem::create_directories(desk.folder / "BAK/7/12");
    log.File().Open(desk.folder / "BAK/7/12/7-12-3.bak");
    return LiveObservation(services);
  }();
};

TEST(EndOfClass, IsStoredWholeOrToldOf) {
  test::FailEveryCallOf<ClassScene>("the end of a class with its survey");
}

/// A class that did not end properly and is closed from what was kept.
struct KeptScene : test::SaveScene {
  explicit KeptScene(bool older) {
    if (older) test::PutOldFile(desk.folder / "EPS/7/12/7-12-3.eps", "the old file");
    kept.program.identity = {"AB", "7", "12", "3", "25"};
    kept.program.Episodes.emplace_back().Descript = "Poems";
    kept.running.curActivity = 3;
    kept.running.choice = ActivityChoice::made;
    kept.running.segmentStart = 32400;
    kept.moment.secondsSinceMidnight = 33000;
    kept.number = 1;
    test::PutFile(file,
                  Sealed(FormatMoment(kept.moment) + FormatRunning(kept.program, kept.running), 1));
  }
  void Save() override { CloseKeptClass(services, ReadKeptClass(file), file); }
  const std::filesystem::path file = desk.folder / "BAK/7/12/7-12-3.recovery";
  KeptClass kept;
};

TEST(ClosingAKeptClass, IsStoredWholeOrToldOf) {
  test::FailEveryCallOf<KeptScene>("a kept class that is closed");
}

TEST(ClosingAKeptClass, OutlivesARecoveryFileThatCannotBeRemoved) {
  struct Sticky : Storage {
    int Unlink(const char* /*path*/) override {
      errno = EROFS;
      return -1;
    }
  } sticky;
  KeptScene scene(false);
  RecoveryFile recovery(sticky);
  const Services services{
      scene.desk.program, scene.log,      recovery,           scene.disk,
      scene.desk.clock,   scene.prompter, scene.desk.screens, scene.desk.programFolder};
  EXPECT_TRUE(CloseKeptClass(services, scene.kept, scene.file));
  EXPECT_TRUE(std::filesystem::exists(scene.file));
}

}  // namespace
}  // namespace orvex
