#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "questions/typist.h"

namespace orvex::test {
namespace {

using Control = QuestionEntry::Control;
using Moves = std::vector<std::string>;

class LeavingEntry : public QuestionEntryTest {
 protected:
  /// The entry opened, with one question stored.
  void OpenWithQuestion(int previousActivity = 0) {
    OpenEntry(previousActivity);
    Keys("Why?\nt\nn\n");
    NewLogText();
  }
};

TEST_F(LeavingEntry, SegmentStartsANewOneOnceConfirmed) {
  OpenWithQuestion();
  Keys("typed, not yet coded");
  prompter.Expect("Start New Segment?", Answer::no);
  Click(Command::Command6);
  EXPECT_EQ(live->CurSegment(), 1);
  EXPECT_EQ(entry->Question(), "typed, not yet coded");
  EXPECT_EQ(focus, Control::txtQuestion);
  EXPECT_EQ(screens.Take(), Moves{});

  clock.Advance(90);
  prompter.Expect("Start New Segment?", Answer::yes);
  Click(Command::Command6);
  EXPECT_EQ(live->CurSegment(), 2);
  EXPECT_EQ(live->EstimateKind(), 0);
  EXPECT_EQ(live->CurrentEpisode().segments.at(0).duration, 90);
  EXPECT_EQ(screens.Take(), (Moves{"show liveObservation", "close questionEntry"}));
}

TEST_F(LeavingEntry, EpisodeAsksWhetherItWasReview) {
  for (const int index : {0, 1}) {
    const auto ended = static_cast<std::size_t>(live->CurEpisode() - 1);
    live->KeyInDescription();
    live->TypeDescription("Act");
    OpenWithQuestion();
    prompter.Expect("Start New Episode?", Answer::no);
    Click(Command::Command7);
    EXPECT_FALSE(entry->AsksReview());
    EXPECT_EQ(focus, Control::txtQuestion);

    prompter.Expect("Start New Episode?", Answer::yes);
    Click(Command::Command7);
    EXPECT_TRUE(entry->AsksReview());
    EXPECT_EQ(focus, Control::Command11_0);
    EXPECT_EQ(Buttons(), "");
    EXPECT_EQ(screens.Take(), Moves{});

    // Nothing but the answer leads on.
    CtrlN();
    entry->EnterOrDown(Control::txtQuestion);
    entry->Up(Control::txtQuestion);
    EXPECT_FALSE(entry->RequestClose());
    EXPECT_EQ(entry->TakeFocus()->control, Control::Command11_0);
    EXPECT_EQ(Visible(), "");
    EXPECT_EQ(Questions().size(), 1U);
    EXPECT_TRUE(entry->AsksReview());

    live->TakeFocus();
    entry->Command11_Click(index);
    entry->Command11_Click(index);
    EXPECT_EQ(program.Episodes.at(ended).bReview, index == 0 ? "Y" : "N");
    EXPECT_EQ(program.Episodes.size(), ended + 2);
    EXPECT_EQ(live->CurrentEpisode(), Episode{});
    EXPECT_EQ(screens.Take(), (Moves{"show liveObservation", "close questionEntry"}));
    const auto wish = live->TakeFocus();
    ASSERT_TRUE(wish);
    EXPECT_EQ(wish->control.kind, LiveObservation::Control::Kind::description);
  }
}

TEST_F(LeavingEntry, AbortGivesTheSegmentItsPreviousActivityBack) {
  OpenEntry(8);
  NewLogText();
  Click(Command::Command5);
  EXPECT_EQ(NewLogText(), "REVISED ACTIVITY # for Ep. 1 Sg. 2 :  8 09:00:00\n");
  EXPECT_EQ(live->CurActivity(), "8");
  EXPECT_EQ(live->EstimateKind(), -1);
  EXPECT_EQ(live->SelectedActivity(), 0);
  EXPECT_EQ(live->Description(), "Macbeth");
  EXPECT_EQ(screens.Take(), (Moves{"show liveObservation", "close questionEntry"}));

  // The next choice is taken without asking, be it question/answer again.
  OpenEntry();
  EXPECT_EQ(live->CurActivity(), "5");
  Keys("Why?\nt\nn\n");
  EXPECT_EQ(Questions().back().iSgQ, 2);
}

TEST_F(LeavingEntry, AbortInTheFirstSegmentEmptiesTheDescription) {
  OpenEntry();
  Click(Command::Command5);
  EXPECT_EQ(live->Description(), "");
  EXPECT_EQ(live->CurActivity(), "");
}

TEST_F(LeavingEntry, DittoOffersThePreviousActivity) {
  struct Case {
    int previous;
    std::string caption;
  };
  const std::vector<Case> cases = {{1, "Procedure"},
                                   {3, "Interrupt"},
                                   {4, "Lecture..."},
                                   {9, "Silent reading"},
                                   {10, "Role-play or simulation"},
                                   {14, "S/Helping"},
                                   {16, "Unsupervis"},
                                   {17, "S grp work"}};
  for (const Case& c : cases) {
    OpenWithQuestion(c.previous);
    EXPECT_FALSE(entry->Enabled(Command::Command5));
    Click(Command::Command4);
    EXPECT_EQ(entry->Caption5(), c.caption);
    ASSERT_TRUE(entry->Enabled(Command::Command5));

    const int segment = live->CurSegment();
    Click(Command::Command5);
    EXPECT_EQ(live->CurSegment(), segment + 1);
    EXPECT_EQ(live->CurActivity(), std::to_string(c.previous));
    EXPECT_EQ(live->SelectedActivity(), c.previous);
    EXPECT_EQ(screens.Take(), (Moves{"show liveObservation", "close questionEntry"}));
    live->StartNewSeg();
  }
}

TEST_F(LeavingEntry, TheOfferEndsWithTheNextQuestion) {
  OpenWithQuestion(3);
  Click(Command::Command4);
  Keys("Next\n");
  EXPECT_EQ(entry->Caption5(), "&Next Q");
  Click(Command::Command7);
  EXPECT_EQ(entry->Caption5(), "&Abort");
  EXPECT_FALSE(entry->Enabled(Command::Command5));
}

TEST_F(LeavingEntry, WithoutAnotherPreviousActivityDittoOffersNothing) {
  OpenWithQuestion();
  Click(Command::Command4);
  EXPECT_EQ(entry->Caption5(), "&Abort");
  EXPECT_FALSE(entry->Enabled(Command::Command5));

  prompter.Expect("Start New Segment?", Answer::yes);
  Click(Command::Command6);
  OpenEntry();
  ASSERT_EQ(live->PrevActivity(), "5");
  Keys("Why?\nt\nn\n");
  Click(Command::Command4);
  EXPECT_EQ(entry->Caption5(), "&Abort");
  EXPECT_FALSE(entry->Enabled(Command::Command5));
}

TEST_F(LeavingEntry, EndClassStoresTheClassOnceVerified) {
  OpenWithQuestion();
  prompter.Expect("Verify END OF CLASS", Answer::no);
  Click(Command::Command10);
  EXPECT_FALSE(program.QuitRequested);
  EXPECT_EQ(focus, Control::txtQuestion);
  EXPECT_EQ(screens.Take(), Moves{});

  prompter.Expect("Verify END OF CLASS", Answer::yes);
  entry->Click(Command::Command10);
  EXPECT_TRUE(program.QuitRequested);
  EXPECT_FALSE(entry->TakeFocus());
  EXPECT_EQ(screens.Take().back(), "end");
  const std::string stored = FileBytes(folder / "EPS/7/12/7-12-3.eps");
  EXPECT_NE(stored.find("Why?"), std::string::npos);
}

TEST_F(LeavingEntry, ClosingTheWindowNeverLosesTheClass) {
  OpenEntry();
  Keys("Why?\nt");
  EXPECT_FALSE(entry->RequestClose());
  EXPECT_EQ(entry->TakeFocus()->control, Control::txtQuestion);
  EXPECT_EQ(entry->Question(), "Why?");

  Keys("\nn\n");
  prompter.Expect("Verify END OF CLASS", Answer::no);
  EXPECT_FALSE(entry->RequestClose());
  EXPECT_FALSE(program.QuitRequested);

  prompter.Expect("Verify END OF CLASS", Answer::yes);
  EXPECT_FALSE(entry->RequestClose());
  EXPECT_EQ(screens.Take().back(), "end");
  EXPECT_TRUE(entry->RequestClose());
}

TEST_F(LeavingEntry, ShowsTheClocksOfTheLiveForm) {
  OpenEntry(3);
  clock.Advance(3725);
  clocks->Tick();
  entry->Tick();
  EXPECT_EQ(entry->EpisodeCaption(), "Episode 1 Time: ");
  EXPECT_EQ(entry->SegmentCaption(), "Segment 2 Time: ");
  EXPECT_EQ(entry->EpisodeTime(), "62 : 05");
  EXPECT_EQ(entry->SegmentTime(), "62 : 05");
  EXPECT_EQ(entry->TimeOfDay(), " 10 : 02 : 05");
  EXPECT_FALSE(entry->Offtask().ButtonVisible());
  EXPECT_EQ(entry->Offtask().CountdownText(), "");
}

}  // namespace
}  // namespace orvex::test
