#include "observe/live_observation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/desk.h"

namespace orvex {
namespace {

struct LiveTest : testing::Test {
  void SetUp() override { Describe("First"); }

  void Describe(const std::string& text) {
    live.KeyInDescription();
    live.TypeDescription(text);
  }
  /// The segment that ends with this.
  SegmentData EndSegment() {
    desk.prompter.Expect("Start New Segment?", Answer::yes);
    live.cmdStartNewSg_Click();
    return live.CurrentEpisode().segments.back();
  }
  void NewEpisode() {
    desk.prompter.Expect("Start New Episode?", Answer::yes);
    live.cmdStartNewEp_Click();
  }
  void Convert() {
    live.UpdateActivityControls();
    live.cmdBailout_Click();
  }
  std::vector<int> Activities(std::size_t episode) {
    std::vector<int> numbers;
    for (const SegmentData& segment : desk.program.Episodes.at(episode - 1).segments) {
      numbers.push_back(segment.activityNum);
    }
    return numbers;
  }

  test::Desk desk;
  LiveObservation live = [this] {
    desk.prompter.cancelsDialogs = true;
    desk.OpenLog();
    return LiveObservation(desk.services);
  }();
};

TEST_F(LiveTest, EachActivityTakesItsEstimates) {
  const std::vector<int> kinds = {6, 6, 6, 1, 5, 6, 6, 7, 6, 6, 6, 6, 6, 2, 3, 4, 8};
  for (int activity = 1; activity <= 17; ++activity) {
    SCOPED_TRACE(activity);
    live.ChooseActivity(activity);
    EXPECT_EQ(live.EstimateKind(), kinds[static_cast<std::size_t>(activity - 1)]);
    EXPECT_EQ(EndSegment().activityNum, activity);
  }
}

TEST_F(LiveTest, ANewEpisodeBecomesASegmentAgain) {
  live.ChooseActivity(10);
  desk.clock.Advance(100);
  NewEpisode();
  Describe("Second");
  live.CurQuestions().emplace_back();
  desk.clock.Advance(20);
  Convert();
  EXPECT_EQ(desk.program.Episodes.size(), 1U);
  EXPECT_EQ(live.CurSegment(), 2);
  EXPECT_EQ(live.Description(), "First");
  EXPECT_EQ(live.CurActivity(), "10");
  EXPECT_TRUE(live.CurQuestions().empty());
  // The segment has had no activity yet, so its first one is taken without asking.
  live.ChooseActivity(11);
  desk.clock.Advance(5);
  EXPECT_EQ(EndSegment().duration, 25);

  live.ChooseActivity(5);
  NewEpisode();
  Describe("Third");
  live.ChooseActivity(4);
  Convert();
  EXPECT_EQ(live.SelectedActivity(), 4) << "a segment that has its activity keeps it";
  EndSegment();
  EXPECT_EQ(Activities(1), (std::vector<int>{10, 11, 5, 4}));
}

TEST_F(LiveTest, OnlyTheFirstKeyOfAnEpisodeTakesTheAboutButtonAway) {
  live.ChooseActivity(4);
  Describe("First, and longer");
  EXPECT_TRUE(live.Coding().aboutVisible);
  NewEpisode();
  Describe("Second");
  EXPECT_FALSE(live.Coding().aboutVisible);
  live.ChooseActivity(6);
  Convert();
  EXPECT_TRUE(live.Coding().aboutVisible) << "the segment goes on with its activity";
}

TEST_F(LiveTest, ASecondClickOnTheConversionWaitsForItsCaption) {
  live.ChooseActivity(1);
  EndSegment();
  live.ChooseActivity(1);
  EXPECT_EQ(live.ConversionCaption(), "Sg. &to Ep.");
  live.cmdBailout_Click();
  EXPECT_EQ(live.ConversionCaption(), "");
  live.cmdBailout_Click();
  EXPECT_EQ(live.CurEpisode(), 2);
  Convert();
  EXPECT_EQ(live.CurEpisode(), 1);
}

TEST_F(LiveTest, NumbersStopAtSixteenBits) {
  live.ChooseActivity(1);
  desk.program.Episodes[0].segments.resize(40000);
  NewEpisode();
  Describe("Back");
  Convert();
  EXPECT_EQ(live.CurSegment(), 40002);
  live.ChooseActivity(1);
  EXPECT_FALSE(live.CanStartSegment());
  live.cmdStartNewQASg_Click();
  EXPECT_EQ(live.CurSegment(), 40002);
  EXPECT_TRUE(live.CanStartEpisode());
}

}  // namespace
}  // namespace orvex
