#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/episode.h"
#include "model/segment_data.h"
#include "model/time_of_day.h"
#include "support/fake_clock.h"
#include "support/scripted_prompter.h"

namespace orvex {
namespace {

SegmentCodes Codes() {
  return {.about = "a poem",
          .fSubCat = 1,
          .grpSolo = 0,
          .prep = 1,
          .org7 = 1,
          .src = 3,
          .coglvl = 1,
          .org14 = 1};
}

TEST(SegmentData, KeepsOnlyWhatTheActivityCarries) {
  for (int activity = 0; activity <= 18; ++activity) {
    SCOPED_TRACE(activity);
    SegmentData expected;
    expected.activityNum = static_cast<std::int16_t>(activity);
    expected.duration = 30;
    expected.grpSolo = 1;
    expected.org = 0;
    if (activity == 4 || activity == 6 || activity == 12) expected.aboutdata = "a poem";
    if (activity == 7) {
      expected.grpSolo = 0;
      expected.prep = 1;
      expected.org = 1;
    }
    if (activity >= 14 && activity <= 17) expected.fSubCat = 1;
    if (activity >= 14 && activity <= 16) {
      expected.src = 3;
      expected.coglvl = 1;
      expected.org = 1;
    }
    SegmentData segment;
    segment.aboutdata = "left over";
    segment.SetData(static_cast<std::int16_t>(activity), 30, Codes());
    EXPECT_EQ(segment, expected);
  }
}

TEST(SegmentData, DurationsAreWholeSecondsOfADayThatMayHaveEnded) {
  const std::vector<std::pair<float, float>> cases = {{12.5F, 12},  {13.5F, 14},    {12.6F, 13},
                                                      {0.5F, 0},    {1.5F, 2},      {-0.4F, 86400},
                                                      {-10, 86390}, {-86399.5F, 0}, {99999, 99999}};
  for (const auto& [given, stored] : cases) {
    SegmentData segment;
    segment.SetData(16, given, {});
    EXPECT_EQ(segment.duration, stored) << given;
  }
}

TEST(TimeOfDay, DifferencesThatDoNotFit) {
  test::ScriptedPrompter prompter;
  EXPECT_EQ(SecondsOfDay(90.5F, prompter), 90);
  EXPECT_EQ(SecondsOfDay(-30.0F, prompter), 86370);
  prompter.Expect("Function overflow. Contact Dovrin.", Answer::ok);
  EXPECT_EQ(SecondsOfDay(3.0e9F, prompter), 0);
}

TEST(TimeOfDay, TextsOfTheClock) {
  test::FakeClock clock(0, 5, 9);
  clock.today = {2026, 3, 4};
  EXPECT_EQ(clock.TimeText(), "00:05:09");
  EXPECT_EQ(clock.SpacedTimeText(), "00 : 05 : 09");
  EXPECT_EQ(clock.DateText(), "03-04-2026");
  EXPECT_EQ(clock.ShortDateText(), "03-04-26");
  clock.Set(23, 59, 59);
  clock.Advance(0.99);
  EXPECT_EQ(clock.TimeText(), "23:59:59");
}

TEST(Episode, MeansAndSums) {
  EXPECT_EQ(AverageOf({}), 0.0F);
  EXPECT_EQ(AverageOf({0.2F, 0.4F, 0.3F}), 0.3F);
  EXPECT_EQ(AverageOf({16777216, 1, 1, 1}), 4194304.75F) << "the ones are lost in a sum of singles";
  Episode episode;
  EXPECT_EQ(episode.duration(), 0);
  episode.segments.resize(3);
  for (SegmentData& segment : episode.segments) segment.duration = 20;
  EXPECT_EQ(episode.duration(), 60);
  EXPECT_FALSE(AnyQuestions({episode, episode}));
  episode.questions.resize(1);
  EXPECT_TRUE(AnyQuestions({Episode{}, episode}));
}

std::vector<questionInfo> Asked(const std::string& sources) {
  std::vector<questionInfo> questions;
  for (const char source : sources) {
    questions.emplace_back().Source = source == 'T'   ? std::int16_t{0}
                                      : source == 'S' ? std::int16_t{1}
                                                      : kUncoded;
  }
  return questions;
}

TEST(DialogicSpells, BeginWithThreeStudentsAndEndBeforeThreeTeacherQuestions) {
  struct Case {
    std::string sources;
    std::vector<DialogicSpell> spells;
  };
  const Case cases[] = {
      {"", {}},
      {"SS", {}},
      {"SSS", {{1, 3}}},
      {"SSSTTT", {{1, 3}}},
      {"SSTSTTT", {}},
      {"SSSTS", {{1, 5}}},
      {"SSSST", {{1, 4}}},
      {"SSSTT", {{1, 3}}},
      {"SSSTTTSSS", {{1, 3}, {7, 9}}},
      {"TS-STTST-TTT", {{2, 9}}},
      {"SSSTTSTTTSS", {{1, 6}}},
      {"SSSTTTTSSTSSS", {{1, 3}, {11, 13}}},
  };
  for (const Case& c : cases)
    EXPECT_EQ(FindDialogicSpells(Asked(c.sources)), c.spells) << c.sources;
}

}  // namespace
}  // namespace orvex
