#include "recovery/unfinished_class.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "faults/played_class.h"
#include "recovery/kept_class.h"
#include "recovery/kept_content.h"
#include "recovery/remembered_folders.h"
#include "store/eps_reader.h"
#include "store/older_file.h"
#include "store/storage.h"
#include "support/desk.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

/// Plays the first `steps` steps of a class, then ends the program like a crash.
void PlayAndCrash(const fs::path& folder, std::size_t steps) {
  Storage storage;
  PlayedClass played(storage, folder);
  for (std::size_t i = 0; i < steps; ++i) played.Play(i);
}

EpisodeList EpisodesIn(const fs::path& eps) {
  struct : EpsReadEvents {
    bool ContinueWithEarlierVersion() override { return false; }
    void FirstSegmentRepaired(int) override {}
  } events;
  return ReadEpsFile(eps, events).Episodes;
}

/// The range of steps after which something was entered and the class has not ended.
constexpr std::size_t kFirst = 2;
constexpr std::size_t kLast = PlayedClass::kSteps - 1;

TEST(UnfinishedClass, TakenUpAtAnyStepEndsAsIfNothingHadHappened) {
  std::vector<std::string> truth;
  for (std::size_t crash = PlayedClass::kSteps; crash >= kFirst; --crash) {
    SCOPED_TRACE("crash after step " + std::to_string(crash));
    const TestFolder folder;
    PlayAndCrash(folder.Path(), crash);
    if (crash <= kLast) {
      Storage storage;
      PlayedClass played(storage, folder.Path());
      ASSERT_TRUE(played.TakeUpAt(crash));
      for (std::size_t i = crash; i < PlayedClass::kSteps; ++i) played.Play(i);
    }
    std::vector<std::string> files;
    for (const char* name : {"EPS/7/12/7-12-4.eps", "NTE/7/12/7-12-4.nte", "SUR/7/12/7-12-4.sur"}) {
      files.push_back(FileBytes(folder / name));
    }
    if (truth.empty()) truth = files;
    EXPECT_EQ(files, truth);
    EXPECT_FALSE(fs::exists(folder / "BAK/7/12/7-12-4.recovery"));
  }
}

TEST(UnfinishedClass, IsOfferedWithWhatIsKnownOfItAndLeftAlone) {
  Desk desk;
  PlayAndCrash(desk.folder.Path(), 15);
  const std::string kept = FileBytes(desk.folder / "BAK/7/12/7-12-3.recovery");
  const std::string text =
      "Class 7-12-3 of 03-14-2001 was not ended.\n\n"
      "It was observed from 09:00:00 to 09:01:00: 1 episode, 3 questions.";
  desk.clock.Set(9, 30, 0);
  desk.prompter.Expect(text, Answer::cancel);
  OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::yes) << "the lesson may still go on";
  EXPECT_EQ(desk.prompter.asked.back().captions.size(), 3U);
  desk.clock.Set(15, 0, 0);
  desk.prompter.Expect(text, Answer::cancel);
  OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::cancel);

  // A new class with the same numbers would replace the log of this one.
  orvex::SetUp setUp(desk.services);
  for (const auto& [box, number] : {std::pair{HeaderBox::schoolNum, "07"},
                                    {HeaderBox::classNum, "12"},
                                    {HeaderBox::observNum, "3"},
                                    {HeaderBox::numStudents, "25"}}) {
    setUp.Type(box, number);
  }
  desk.prompter.Expect(text, Answer::cancel);
  setUp.Start();
  EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{});
  EXPECT_EQ(FileBytes(desk.folder / "BAK/7/12/7-12-3.recovery"), kept);

  desk.prompter.Expect(text, Answer::yes);
  setUp.Start();
  EXPECT_EQ(desk.screens.Take(),
            (std::vector<std::string>{"take up the class", "close mainMenu", "hide setUp"}));
  EXPECT_NE(desk.NewLogText().find("CLASS TAKEN UP AGAIN ***** 15:00:00"), std::string::npos);
  // The segment ran on all the while; correcting the time can take that back.
  EXPECT_NEAR(desk.clock.SecondsSinceMidnight() - desk.screens.takenUp->segmentStart, 21568, 1);
}

TEST(UnfinishedClass, IsOfferedWhereverItLiesAndSeveralInOneList) {
  Desk desk;
  const TestFolder stick;
  const TestFolder lost;
  PlayAndCrash(stick.Path(), 15);
  for (const fs::path& folder : {stick.Path(), lost / "gone", stick / "."}) {
    RememberFolder(desk.storage, desk.programFolder, folder);
  }
  const auto offer = [&] {
    return OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  };
  desk.prompter.Expect(
      "Class 7-12-3 of 03-14-2001 was not ended.\n\n"
      "It was observed from 09:00:00 to 09:01:00: 1 episode, 3 questions.\n\n"
      "It lies in the data folder " +
          stick.Path().string() + ".",
      Answer::cancel);
  EXPECT_FALSE(offer());

  PlayAndCrash(desk.folder.Path(), 24);
  desk.prompter.ExpectUnfinished({{.item = 1, .answer = Answer::no}});
  desk.prompter.Expect(
      "Class 7-12-4 of 03-14-2001 was not ended.\n\n"
      "It was observed from 09:00:00 to 09:01:36: 2 episodes, 3 questions.",
      Answer::cancel);
  EXPECT_FALSE(offer());
  const UnfinishedItem& item = desk.prompter.askedUnfinished.at(0).at(1);
  EXPECT_EQ(
      item.what + "|" + item.extent + "|" + item.place,
      "Class 7-12-3 of 03-14-2001 was not ended|09:00:00 to 09:01:00, 1 episode, 3 questions|" +
          stick.Path().string());
  EXPECT_TRUE(fs::exists(stick / "EPS/7/12/7-12-3.eps")) << "it is closed where it lies";
  EXPECT_FALSE(fs::exists(desk.folder / "EPS"));

  PlayAndCrash(stick.Path(), 6);
  desk.prompter.ExpectUnfinished({{.item = 1, .answer = Answer::yes}});
  EXPECT_TRUE(offer());
  EXPECT_EQ(desk.program.DataPath, stick.Path()) << "and gone on with there";
}

TEST(UnfinishedClass, IsClosedAsItStandsAndReplacesNothing) {
  Desk desk;
  const auto eps = desk.folder / "EPS/7/12/7-12-3.eps";
  const auto kept = desk.folder / "BAK/7/12/7-12-3.recovery";
  PlayAndCrash(desk.folder.Path(), 15);
  const auto notes = desk.folder / "NTE/7/12/7-12-3.nte";
  const auto survey = desk.folder / "SUR/7/12/7-12-3.sur";
  PutOldFile(notes, "older notes");
  PutFile(survey, "an older survey");
  const std::string older = OlderName(notes);
  desk.prompter.Expect(
      "Class 7-12-3 of 03-14-2001 was not ended.\n\n"
      "It was observed from 09:00:00 to 09:01:00: 1 episode, 3 questions.",
      Answer::no);
  desk.prompter.Expect(
      "There was another class of these numbers. What was there is kept as\n\n" + older,
      Answer::ok);
  OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  EXPECT_EQ(FileBytes(notes.parent_path() / older), "older notes");
  EXPECT_FALSE(fs::exists(kept));
  const Episode episode = EpisodesIn(eps).at(0);
  ASSERT_EQ(episode.segments.size(), 3U);
  EXPECT_EQ(episode.segments.back().activityNum, kQuestionAnswer);
  EXPECT_EQ(episode.segments.back().duration, 7 * 4);
  EXPECT_EQ(FileBytes(notes), "They read in pairs.\r\n\r\n");
  EXPECT_EQ(FileBytes(survey), "an older survey") << "nobody has filled another one in";
  EXPECT_TRUE(desk.program.Episodes.empty()) << "nothing is observed";
}

TEST(UnfinishedClass, ClosedWithAQuestionThatWasBeingEnteredStoresIt) {
  Desk desk;
  PlayAndCrash(desk.folder.Path(), 12);
  desk.prompter.Expect(
      "Class 7-12-3 of 03-14-2001 was not ended.\n\n"
      "It was observed from 09:00:00 to 09:00:48: 1 episode, 1 question.",
      Answer::no);
  desk.prompter.Expect(
      "The question that was being entered is stored as question 2 of episode 1, with the codes "
      "that it had.",
      Answer::ok);
  OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  EXPECT_EQ(desk.prompter.asked.back().details, "Why does she keep it to herself?");
  const questionInfo stored = EpisodesIn(desk.folder / "EPS/7/12/7-12-3.eps").at(0).questions.at(1);
  EXPECT_EQ(stored.question, "Why does she keep it to herself?");
  EXPECT_EQ(stored.strSrc(), "T");
  EXPECT_EQ(stored.strAuth(), "");
}

TEST(UnfinishedClass, OfferedByTwoProgramsGoesToOne) {
  Desk desk;
  PlayAndCrash(desk.folder.Path(), 6);
  Storage storage;
  const std::string offer =
      "Class 7-12-3 of 03-14-2001 was not ended.\n\n"
      "It was observed from 09:00:00 to 09:00:24: 1 episode, 0 questions.";
  // While the question is open here, another program takes up the class, continues it and crashes.
  desk.prompter.Expect(offer, Answer::yes, [&] {
    PlayedClass other(storage, desk.folder.Path());
    ASSERT_TRUE(other.TakeUpAt(6));
    other.Play(6);
  });
  desk.prompter.Expect("The class could not be taken up again.", Answer::ok);
  OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{});
  EXPECT_NE(FileBytes(desk.folder / "BAK/7/12/7-12-3.recovery").find("Atticus"), std::string::npos);
}

TEST(UnfinishedClass, ThatWasJustRenamedKeepsItsLog) {
  Desk desk;
  PlayAndCrash(desk.folder.Path(), 24);
  const auto bak = desk.folder / "BAK/7/12";
  // The log was renamed already, but the recovery file still has the old name.
  fs::rename(bak / "7-12-4.recovery", bak / "7-12-3.recovery");
  const std::string log = FileBytes(bak / "7-12-4.bak");
  {
    Storage storage;
    PlayedClass played(storage, desk.folder.Path());
    ASSERT_TRUE(played.TakeUpAt(24));
    played.Play(24);
  }
  EXPECT_TRUE(FileBytes(bak / "7-12-4.bak").starts_with(log));
  EXPECT_FALSE(fs::exists(bak / "7-12-3.bak"));
  EXPECT_EQ(KeptPaths(desk.folder / "BAK"), std::vector{bak / "7-12-4.recovery"});
}

TEST(UnfinishedClass, ThatWasKilledWhileItWasRenamedIsOne) {
  Desk desk;
  const auto bak = desk.folder / "BAK/7/12";
  PlayAndCrash(desk.folder.Path(), 24);
  // The class is still kept under its old number; the log has either of the two names.
  KeptClass old = ReadKeptClass(bak / "7-12-4.recovery");
  old.program.Episodes.resize(1);
  old.running.curEpisode = 1;
  old.running.curSegment = static_cast<int>(old.program.Episodes[0].segments.size()) + 1;
  for (const char* logged : {"7-12-4.bak", "7-12-3.bak"}) {
    if (!fs::exists(bak / logged)) fs::rename(bak / "7-12-4.bak", bak / logged);
    PutFile(
        bak / "7-12-3.recovery",
        Sealed(FormatMoment(old.moment) + FormatRunning(old.program, old.running), old.number - 1));
    desk.prompter.Expect(
        "Class 7-12-4 of 03-14-2001 was not ended.\n\n"
        "It was observed from 09:00:00 to 09:01:36: 2 episodes, 3 questions.",
        Answer::cancel);
    OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
    EXPECT_EQ(KeptPaths(desk.folder / "BAK"), std::vector{bak / "7-12-4.recovery"});
    EXPECT_TRUE(fs::exists(bak / "7-12-4.bak"));
  }
}

TEST(UnfinishedClass, KeepsNotesThatWereTakenBeforeAnythingElse) {
  Desk desk;
  desk.OpenLog();
  desk.recovery.Begin(desk.folder / "BAK/7/12/7-12-3.recovery");
  LiveObservation live(desk.services);
  live.Keep();
  desk.prompter.ExpectNotes("The room is cold.");
  live.EditFieldNotes();
  const auto kept = [&] {
    live.Keep();
    desk.recovery.AwaitStored();
    return ReadKeptClass(desk.folder / "BAK/7/12/7-12-3.recovery");
  };
  EXPECT_EQ(kept().running.fieldNotes, "The room is cold.");
  // Text being typed is kept as well. It is back in the dialog when the class is taken up.
  desk.prompter.ExpectNotes(std::nullopt, [&](const NotesPrompt& prompt) {
    prompt.typed("The room is colder.");
    LiveObservation again(desk.services, kept().running);
    EXPECT_TRUE(again.Running().draftNotes);
    desk.prompter.ExpectNotes(std::nullopt);
    again.EditFieldNotes();
    EXPECT_EQ(desk.prompter.askedNotes.back(), "The room is colder.");
    prompt.typed(prompt.notes);  // cancelled
  });
  live.EditFieldNotes();
  EXPECT_FALSE(kept().running.draftNotes);
  live.EndClass();
  EXPECT_EQ(FileBytes(desk.folder / "NTE/7/12/7-12-3.nte"), "The room is cold.\r\n");
  EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{"end"});
  EXPECT_EQ(KeptPaths(desk.folder / "BAK"), std::vector<fs::path>{});
}

TEST(UnfinishedClass, ThatStillRunsIsNobodyElses) {
  Desk desk;
  Storage storage;
  PlayedClass played(storage, desk.folder.Path());
  for (std::size_t i = 0; i < 5; ++i) played.Play(i);
  OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  orvex::SetUp setUp(desk.services);
  desk.program.identity = {"CD", "7", "12", "3", "25"};
  desk.prompter.Expect("The session log could not be opened.", Answer::ok);
  setUp.Start();
  EXPECT_NE(desk.prompter.asked.back().details.find("in use by another Orvex"), std::string::npos);
  EXPECT_EQ(desk.screens.Take(), std::vector<std::string>{});
}

TEST(UnfinishedClass, ThatIsDamagedIsToldAndLeftAlone) {
  Desk desk;
  fs::create_directories(desk.folder / "BAK/7/12");
  std::ofstream(desk.folder / "BAK/7/12/7-12-3.recovery") << "Orvex recovery=1\r\n";
  desk.prompter.Expect("A class that was not ended cannot be read. Its file is left as it is.",
                       Answer::ok);
  OfferUnfinished(desk.prompter, UnfinishedClasses(desk.services));
  EXPECT_NE(desk.prompter.asked.back().details.find("7-12-3.recovery: line 2: expected the seal"),
            std::string::npos);
  EXPECT_TRUE(fs::exists(desk.folder / "BAK/7/12/7-12-3.recovery"));
}

}  // namespace
}  // namespace orvex::test
