#include "observe/live_observation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "observe/session_clocks.h"
#include "support/desk.h"

namespace orvex {
namespace {

using Kind = LiveObservation::Control::Kind;

struct LiveTest : testing::Test {
  void SetUp() override { desk.NewLogText(); }

  void Describe(const std::string& text) {
    live.EnterDescription();
    live.KeyInDescription();
    live.TypeDescription(text);
    live.LeaveDescription();
  }
  void NewSegment() {
    desk.prompter.Expect("Start New Segment?", Answer::yes);
    live.cmdStartNewSg_Click();
  }
  void NewEpisode() {
    desk.prompter.Expect("Start New Episode?", Answer::yes);
    live.cmdStartNewEp_Click();
  }
  void Convert() {
    live.UpdateActivityControls();
    live.cmdBailout_Click();
  }
  const Episode& EpisodeNo(std::size_t number) { return desk.program.Episodes.at(number - 1); }
  std::vector<int> Activities(std::size_t episode) {
    std::vector<int> numbers;
    for (const SegmentData& segment : EpisodeNo(episode).segments) {
      numbers.push_back(segment.activityNum);
    }
    return numbers;
  }

  test::Desk desk;
  LiveObservation live = [this] {
    desk.OpenLog();
    return LiveObservation(desk.services);
  }();
};

TEST_F(LiveTest, NothingIsOfferedBeforeADescriptionAndAnActivity) {
  EXPECT_EQ(live.Caption(), "Class Activity Menu - File opened at 09:00:00");
  EXPECT_FALSE(live.Coding().choicesVisible);
  EXPECT_TRUE(live.CanEndClass());
  live.KeyInDescription();
  EXPECT_TRUE(live.Coding().choicesVisible);
  EXPECT_FALSE(live.CanEndClass());
  live.ChooseActivity(1);
  EXPECT_FALSE(live.CanDivide());
  live.TypeDescription("Warm-up");
  EXPECT_TRUE(live.CanDivide());
  EXPECT_TRUE(live.CanEndClass());
  EXPECT_FALSE(live.ProofVisible());
  live.CurQuestions().emplace_back();
  EXPECT_TRUE(live.ProofVisible());
  live.TypeDescription("");
  EXPECT_FALSE(live.CanDivide());
  EXPECT_FALSE(live.ConversionVisible());
}

TEST_F(LiveTest, ASegmentEndsWithItsLengthAndTheNextWaitsForItsActivity) {
  Describe("Warm-up");
  live.ChooseActivity(1);
  desk.clock.Advance(90);
  desk.prompter.Expect("Start New Segment?", Answer::no);
  live.cmdStartNewSg_Click();
  EXPECT_EQ(live.CurSegment(), 1);
  EXPECT_EQ(desk.prompter.asked.back().defaultAnswer, Answer::yes);
  NewSegment();
  EXPECT_EQ(live.CurSegment(), 2);
  EXPECT_EQ(live.SegmentCaption(), "Segment 2 Time: ");
  EXPECT_EQ(live.CurActivity(), "1");
  EXPECT_FALSE(live.CanDivide());
  EXPECT_EQ(live.TakeFocus()->control.kind, Kind::activity);
  live.ChooseActivity(4);
  live.TypeAbout("Night,\nchapter 2");
  desk.clock.Advance(12.5);
  NewSegment();
  EXPECT_EQ(live.Coding().about, "");
  ASSERT_EQ(EpisodeNo(1).segments.size(), 2U);
  EXPECT_EQ(EpisodeNo(1).segments[0].duration, 90);
  EXPECT_EQ(EpisodeNo(1).segments[1].duration, 12);
  EXPECT_EQ(EpisodeNo(1).segments[1].aboutdata, "Night, chapter 2");
  EXPECT_EQ(desk.NewLogText(),
            "REVISED EP.Description: Warm-up 09:00:00\n"
            "\n"
            "***************************** Episode 1 ******************************\n"
            "Ep. 1 Sg. 1 started at 09:00:00\n"
            "Ep. 1 Sg. 1 Procedures && directions 90\n"
            "Ep. 1 Sg. 2 Lecture, film, video, music 12\n"
            "\"Night, chapter 2\"\n"
            "\n");
}

TEST_F(LiveTest, QuestionAnswerStartsWithoutAsking) {
  Describe("Warm-up");
  live.ChooseActivity(8);
  desk.screens.Take();
  live.cmdStartNewQASg_Click();
  EXPECT_EQ(live.CurSegment(), 2);
  EXPECT_EQ(live.CurActivity(), "5");
  EXPECT_EQ(live.EstimateKind(), 5);
  EXPECT_EQ(Activities(1), std::vector<int>{8});
  EXPECT_EQ(desk.screens.Take(),
            (std::vector<std::string>{"show questionEntry", "hide liveObservation"}));
  EXPECT_TRUE(desk.prompter.asked.empty());
}

TEST_F(LiveTest, ANewEpisodeStoresTheOldOneAndStartsEmpty) {
  Describe("Warm-up");
  live.ChooseActivity(2);
  desk.clock.Advance(60);
  NewSegment();
  live.ChooseActivity(7);
  live.ChooseGroupSolo(0);
  live.CurQuestions().emplace_back();
  desk.clock.Advance(30);
  desk.NewLogText();
  NewEpisode();
  EXPECT_EQ(desk.NewLogText(),
            "Ep. 1 Sg. 2 Student presentation 30\n"
            "Episode 1 : Warm-up, 90, 09:01:30\n"
            "\n"
            "Prop. students offtask in episode 1 = 0.E0 [number of estimates = 0 ]\n");
  EXPECT_EQ(live.EpisodeCaption(), "Episode 2 Time: ");
  EXPECT_EQ(live.CurSegment(), 1);
  EXPECT_EQ(live.Description(), "");
  EXPECT_EQ(live.CurActivity(), "");
  EXPECT_FALSE(live.Coding().choicesVisible);
  EXPECT_FALSE(live.Coding().presentationVisible);
  EXPECT_EQ(live.TakeFocus()->control.kind, Kind::description);
  EXPECT_EQ(EpisodeNo(1).segments[1].grpSolo, 0);
  EXPECT_EQ(live.Coding().grpSolo, 1);
  EXPECT_EQ(EpisodeNo(1).Descript, "Warm-up");
}

TEST_F(LiveTest, TheRunningSegmentBecomesAnEpisode) {
  Describe("Whole");
  for (const int activity : {1, 2}) {
    live.ChooseActivity(activity);
    desk.clock.Advance(100);
    NewSegment();
  }
  live.ChooseActivity(15);
  live.TypeSource("homework");
  live.CurQuestions().emplace_back();
  desk.clock.Advance(50);
  desk.NewLogText();
  Convert();
  EXPECT_EQ(desk.NewLogText(),
            "***** CHANGE A NEW SEGMENT TO NEW EPISODE ***** 09:04:10\n"
            "Episode 1 : Whole, 200, 09:04:10\n"
            "\n"
            "                    ACTIVE ESTIMATES FOR EPISODE 1 :\n"
            "Prop. students offtask in episode 1 = 0.E0 [number of estimates = 0 ]\n");
  EXPECT_EQ(Activities(1), (std::vector<int>{1, 2}));
  EXPECT_EQ(live.CurEpisode(), 2);
  EXPECT_EQ(live.CurSegment(), 1);
  EXPECT_EQ(live.EpisodeStart(), live.SegmentStart());
  EXPECT_EQ(live.Coding().source, "homework");
  EXPECT_TRUE(live.Coding().choicesVisible);
  Describe("Part");
  desk.clock.Advance(10);
  NewSegment();
  ASSERT_EQ(EpisodeNo(2).segments.size(), 1U);
  EXPECT_EQ(EpisodeNo(2).segments[0].duration, 60);
  EXPECT_EQ(EpisodeNo(2).segments[0].src, 2);
}

TEST_F(LiveTest, ANewEpisodeBecomesASegmentAgain) {
  Describe("First");
  live.ChooseActivity(10);
  desk.clock.Advance(100);
  NewEpisode();
  Describe("Second");
  live.CurQuestions().emplace_back();
  desk.clock.Advance(20);
  desk.NewLogText();
  Convert();
  EXPECT_EQ(desk.NewLogText(), "***** CHANGE A NEW EPISODE TO NEW SEGMENT ***** 09:02:00\n");
  EXPECT_EQ(desk.program.Episodes.size(), 1U);
  EXPECT_EQ(live.CurEpisode(), 1);
  EXPECT_EQ(live.CurSegment(), 2);
  EXPECT_EQ(live.Description(), "First");
  EXPECT_EQ(live.CurActivity(), "10");
  EXPECT_TRUE(live.Coding().choicesVisible);
  EXPECT_TRUE(live.CurQuestions().empty());
  // The segment has had no activity yet, so its first one is taken without asking.
  live.ChooseActivity(11);
  desk.clock.Advance(5);
  NewSegment();
  EXPECT_EQ(Activities(1), (std::vector<int>{10, 11}));
  EXPECT_EQ(EpisodeNo(1).segments[1].duration, 25);
}

TEST_F(LiveTest, ASegmentThatHasItsActivityKeepsItWhenItsEpisodeGoes) {
  Describe("First");
  live.ChooseActivity(5);
  NewEpisode();
  Describe("Second");
  live.ChooseActivity(4);
  Convert();
  EXPECT_EQ(live.SelectedActivity(), 4);
  NewSegment();
  EXPECT_EQ(Activities(1), (std::vector<int>{5, 4}));
}

TEST_F(LiveTest, ASecondClickOnTheConversionWaitsForItsCaption) {
  Describe("First");
  live.ChooseActivity(1);
  NewSegment();
  live.ChooseActivity(1);
  EXPECT_EQ(live.ConversionCaption(), "Sg. &to Ep.");
  live.cmdBailout_Click();
  EXPECT_EQ(live.ConversionCaption(), "");
  live.cmdBailout_Click();
  EXPECT_EQ(live.CurEpisode(), 2);
  live.UpdateActivityControls();
  EXPECT_EQ(live.ConversionCaption(), "Ep. &to Sg.");
  live.cmdBailout_Click();
  EXPECT_EQ(live.CurEpisode(), 1);
}

TEST_F(LiveTest, ClocksRunAcrossMidnight) {
  desk.clock.Set(23, 50, 0);
  LiveObservation late(desk.services);
  SessionClocks clocks(desk.services, late);
  EXPECT_EQ(clocks.TimeOfDay(), "23 : 50 : 00");
  EXPECT_EQ(clocks.EpisodeTime(), "00 : 00");
  late.KeyInDescription();
  late.TypeDescription("Night");
  late.ChooseActivity(9);
  desk.clock.Advance(59);
  clocks.Tick();
  EXPECT_EQ(clocks.SegmentTime(), "00 : 59");
  desk.clock.Advance(1);
  clocks.Tick();
  EXPECT_EQ(clocks.SegmentTime(), "01 : 00");
  desk.clock.Advance(1200 - 60);
  clocks.Tick();
  EXPECT_EQ(clocks.TimeOfDay(), " 00 : 10 : 00");
  EXPECT_EQ(clocks.EpisodeTime(), "20 : 00");
  desk.prompter.Expect("Start New Segment?", Answer::yes);
  late.cmdStartNewSg_Click();
  EXPECT_EQ(EpisodeNo(1).segments[0].duration, 1200);
  desk.clock.Advance(4805);
  clocks.Tick();
  EXPECT_EQ(clocks.EpisodeTime(), "100 : 05");
}

TEST_F(LiveTest, TheOfftaskPromptBlinksWhileAnEstimateIsPending) {
  OfftaskIndicator prompt;
  prompt.Tick(0, 7);
  EXPECT_FALSE(prompt.ButtonVisible());
  EXPECT_EQ(prompt.CountdownText(), "Offtask in     :            00 : 07");
  for (const char* caption : {"", "* &OFFTASK *", ""}) {
    prompt.Tick(2, 7);
    EXPECT_TRUE(prompt.ButtonVisible());
    EXPECT_EQ(prompt.ButtonCaption(), caption);
    EXPECT_EQ(prompt.CountdownText(), "");
  }
  prompt.Tick(0, 0);
  EXPECT_EQ(prompt.CountdownText(), "");
}

TEST_F(LiveTest, NumbersStopAtSixteenBits) {
  Describe("Long");
  live.ChooseActivity(1);
  desk.program.Episodes[0].segments.resize(40000);
  NewEpisode();
  Describe("Back");
  Convert();
  EXPECT_EQ(live.CurSegment(), 40002);
  live.ChooseActivity(1);
  EXPECT_TRUE(live.CanDivide());
  EXPECT_FALSE(live.CanStartSegment());
  live.cmdStartNewQASg_Click();
  EXPECT_EQ(live.CurSegment(), 40002);
  EXPECT_TRUE(live.CanStartEpisode());
}

}  // namespace
}  // namespace orvex
