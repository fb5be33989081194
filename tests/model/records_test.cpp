#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/episode.h"
#include "model/segment_data.h"
#include "model/time_of_day.h"
#include "support/scripted_prompter.h"

namespace orvex {
namespace {

TEST(SegmentData, KeepsOnlyWhatTheActivityCarries) {
  const SegmentCodes codes = {"a poem", 1, 0, 1, 1, 3, 1, 1};
  for (std::int16_t activity = 0; activity <= 18; ++activity) {
    const bool about = activity == 4 || activity == 6 || activity == 12;
    const bool seatwork = activity == 7;
    const bool group = activity >= 14 && activity <= 16;
    SegmentData segment;
    segment.aboutdata = "left over";
    segment.SetData(activity, 30, codes);
    SegmentData expected;
    expected.activityNum = activity;
    expected.duration = 30;
    expected.aboutdata = about ? "a poem" : "";
    expected.grpSolo = seatwork ? 0 : 1;
    expected.org = seatwork || group ? 1 : 0;
    if (seatwork) expected.prep = 1;
    if (group || activity == 17) expected.fSubCat = 1;
    if (group) expected.src = 3;
    if (group) expected.coglvl = 1;
    EXPECT_EQ(segment, expected) << activity;
  }
}

TEST(SegmentData, DurationsAreWholeSecondsOfADayThatMayHaveEnded) {
  const std::vector<std::pair<float, float>> cases = {
      {12.5F, 12}, {13.5F, 14}, {12.6F, 13}, {-0.4F, 86400}, {-10, 86390}};
  for (const auto& [given, stored] : cases) {
    SegmentData segment;
    segment.SetData(16, given, {});
    EXPECT_EQ(segment.duration, stored) << given;
    EXPECT_EQ(static_cast<float>(SecondsOfDay(given).value()), stored) << given;
  }
  EXPECT_EQ(SecondsOfDay(3.0e9F), std::nullopt);
}

TEST(Episode, MeansAreOfDoublePrecision) {
  EXPECT_EQ(AverageOf({16777216, 1, 1, 1}), 4194304.75F) << "the ones are lost in a sum of singles";
}

TEST(DialogicSpells, BeginWithThreeStudentsAndEndBeforeThreeTeacherQuestions) {
  const std::pair<std::string, std::vector<DialogicSpell>> cases[] = {
      {"SSSTTT", {{1, 3}}},
      {"SSTSTTT", {}},
      {"SSSTS", {{1, 5}}},
      {"TS-STTST-TTT", {{2, 9}}},
      {"SSSTTTTSSTSSS", {{1, 3}, {11, 13}}},
  };
  for (const auto& [sources, spells] : cases) {
    std::vector<questionInfo> asked(sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i) {
      if (sources[i] != '-') asked[i].Source = sources[i] == 'S' ? 1 : 0;
    }
    EXPECT_EQ(FindDialogicSpells(asked), spells) << sources;
  }
}

}  // namespace
}  // namespace orvex
