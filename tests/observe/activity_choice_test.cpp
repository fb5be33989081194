#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "observe/live_observation.h"
#include "support/desk.h"

namespace orvex {
namespace {

struct ActivityTest : testing::Test {
  void SetUp() override {
    live.KeyInDescription();
    live.TypeDescription("Poems");
    desk.NewLogText();
  }
  SegmentData EndSegment() {
    desk.prompter.Expect("Start New Segment?", Answer::yes);
    live.cmdStartNewSg_Click();
    return live.CurrentEpisode().segments.back();
  }

  test::Desk desk;
  LiveObservation live = [this] {
    desk.OpenLog();
    return LiveObservation(desk.services);
  }();
};

TEST_F(ActivityTest, EachActivityShowsItsPanelsAndTakesItsEstimates) {
  const std::vector<int> kinds = {6, 6, 6, 1, 5, 6, 6, 7, 6, 6, 6, 6, 6, 2, 3, 4, 8};
  for (int activity = 1; activity <= 17; ++activity) {
    SCOPED_TRACE(activity);
    live.ChooseActivity(activity);
    const SegmentCoding& coding = live.Coding();
    EXPECT_EQ(live.EstimateKind(), kinds[static_cast<std::size_t>(activity - 1)]);
    EXPECT_EQ(live.SelectedActivity(), activity);
    EXPECT_EQ(coding.aboutVisible, activity == 4 || activity == 6 || activity == 12);
    EXPECT_EQ(coding.presentationVisible, activity == 7);
    EXPECT_EQ(coding.seatworkEnabled, activity >= 14 && activity <= 16);
    EXPECT_EQ(coding.groupTypesEnabled, activity == 17);
    EXPECT_TRUE(live.CanDivide());
    EXPECT_EQ(EndSegment().activityNum, activity);
  }
}

TEST_F(ActivityTest, SubCodesAreReadAsTheyStandAtTheEnd) {
  live.ChooseActivity(7);
  EXPECT_EQ(live.Coding().grpSolo, 1);
  EXPECT_EQ(live.Coding().presentationOrg, 0);
  live.ChoosePreparation(1);
  live.ChoosePresentationOrg(1);
  SegmentData segment = EndSegment();
  EXPECT_EQ((std::vector<int>{segment.grpSolo, segment.prep, segment.org}),
            (std::vector<int>{1, 1, 1}));

  live.ChooseActivity(14);
  EXPECT_EQ(live.Coding().source, "no coding");
  live.ChooseWritingKind(1);
  live.TypeSource("other");
  live.TypeCognitiveLevel("Report");
  live.TypeSeatworkOrg("S");
  segment = EndSegment();
  EXPECT_EQ((std::vector<int>{segment.fSubCat, segment.src, segment.coglvl, segment.org}),
            (std::vector<int>{1, 3, -1, 1}));

  live.ChooseActivity(16);
  segment = EndSegment();
  EXPECT_EQ((std::vector<int>{segment.fSubCat, segment.src, segment.coglvl, segment.org}),
            (std::vector<int>{-1, -1, -1, 0}));

  live.ChooseActivity(17);
  live.ChooseGroupType(4);
  EXPECT_EQ(EndSegment().fSubCat, 4);
  live.ChooseActivity(17);
  EXPECT_EQ(EndSegment().fSubCat, kUncoded);
}

TEST_F(ActivityTest, ARevisionRecodesTheWholeSegment) {
  live.ChooseActivity(14);
  live.TypeSource("other");
  live.TypeAbout("not for seatwork");
  desk.clock.Advance(150);
  desk.NewLogText();
  desk.prompter.Expect("Revise activity # ?", Answer::cancel);
  live.ChooseActivity(17);
  EXPECT_EQ(desk.prompter.asked.back().buttons, Buttons::okCancel);
  EXPECT_EQ(live.CurActivity(), "14");
  EXPECT_EQ(live.SelectedActivity(), 14);
  EXPECT_EQ(live.Coding().source, "other");
  EXPECT_EQ(live.EstimateKind(), 2);
  EXPECT_EQ(live.TakeFocus()->control.activity, 14);
  EXPECT_EQ(desk.NewLogText(), "");

  desk.prompter.Expect("Revise activity # ?", Answer::ok);
  live.ChooseActivity(17);
  EXPECT_EQ(desk.NewLogText(), "REVISED ACTIVITY # for Ep. 1 Sg. 1 :  17 09:02:30\n");
  EXPECT_EQ(live.PrevActivity(), "14");
  EXPECT_EQ(live.Coding().source, "No coding");
  EXPECT_FALSE(live.Coding().seatworkEnabled);
  EXPECT_TRUE(live.Coding().groupTypesEnabled);
  live.ChooseActivity(17);  // the selected one again: nothing to revise
  EXPECT_EQ(EndSegment().duration, 150);
}

TEST_F(ActivityTest, AnAbandonedQuestionAnswerGoesBackToItsPreviousActivity) {
  live.ChooseActivity(9);
  live.cmdStartNewQASg_Click();
  desk.NewLogText();
  live.AbandonQuestionAnswer();
  EXPECT_EQ(desk.NewLogText(), "REVISED ACTIVITY # for Ep. 1 Sg. 2 :  9 09:00:00\n");
  EXPECT_EQ(live.EstimateKind(), -1);
  EXPECT_FALSE(live.CanDivide());
  EXPECT_EQ(live.Description(), "Poems");
  live.ChooseActivity(3);
  EXPECT_EQ(EndSegment().activityNum, 3);

  desk.prompter.Expect("Start New Episode?", Answer::yes);
  live.ChooseActivity(1);
  live.cmdStartNewEp_Click();
  live.TypeDescription("Questions");
  live.ChooseActivity(5);
  live.AbandonQuestionAnswer();
  EXPECT_EQ(live.Description(), "");
  EXPECT_EQ(live.CurActivity(), "");
}

}  // namespace
}  // namespace orvex
