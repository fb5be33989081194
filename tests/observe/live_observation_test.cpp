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

TEST_F(LiveTest, ASegmentKeepsOnlyWhatItsActivityCarries) {
  for (std::int16_t activity = 1; activity <= 17; ++activity) {
    SCOPED_TRACE(activity);
    live.ChooseActivity(activity);
    live.TypeAbout("a poem");
    live.ChooseCode(SubCode::writing, 0);
    live.ChooseCode(SubCode::groupWork, 4);
    live.ChooseCode(SubCode::groupSolo, 0);
    live.ChooseCode(SubCode::preparation, 1);
    live.ChooseCode(SubCode::organization, 1);
    live.TypeCode(SubCode::seatworkSource, activity == 15 ? "Homework" : "homework");
    live.TypeCode(SubCode::seatworkLevel, "higher order");
    live.TypeCode(SubCode::seatworkOrganization, "S");

    const bool presentation = activity == 7;
    const bool seatwork = activity >= 14 && activity <= 16;
    SegmentData expected;
    expected.activityNum = activity;
    if (activity == 4 || activity == 6 || activity == 12) expected.aboutdata = "a poem";
    if (seatwork || activity == 17) expected.fSubCat = seatwork ? 0 : 4;
    expected.grpSolo = presentation ? 0 : 1;
    if (presentation) expected.prep = 1;
    expected.org = presentation || seatwork ? 1 : 0;
    if (seatwork && activity != 15) expected.src = 2;
    if (seatwork) expected.coglvl = 1;
    EXPECT_EQ(EndSegment(), expected);
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
  EXPECT_EQ(live.CurActivity(), 10);
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
