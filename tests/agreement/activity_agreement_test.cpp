#include "agreement/activity_agreement.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

#include "model/wording.h"

namespace orvex {
namespace {

using Segments = std::vector<std::pair<int, double>>;  // the activity and its seconds

EpisodeList ClassOf(const Segments& segments) {
  EpisodeList episodes(1);
  for (const auto& [activity, seconds] : segments) {
    SegmentData& segment = episodes[0].segments.emplace_back();
    segment.activityNum = static_cast<std::int16_t>(activity);
    segment.duration = static_cast<float>(seconds);
  }
  return episodes;
}

std::vector<ActivityStretch> Stretches(const Segments& segments, double offset = 0) {
  return StretchesOf(ClassOf(segments), offset);
}

TEST(ActivityAgreement, CountsSecondsWithinTheToleranceOfTheOthersActivity) {
  // The overlap is from 2 to 40.
  const auto first = Stretches({{5, 10}, {4, 20}, {5, 10}});
  const auto second = Stretches({{5, 11}, {4, 4}, {9, 3}, {4, 21}}, 2);
  const struct {
    int activity, other;
    std::int64_t seconds, tolerantFirst, tolerantSecond;
  } cells[] = {
      {5, 5, 8, 8, 10},   // the second's 11 and 12 are at most 2 after the first's 9 and 10
      {4, 5, 3, 1, 8},    // 10 to 13: at 11 and 12, the second's 4 is at most 2 ahead
      {4, 9, 3, 0, 0},    // 17 to 20: there is a 4 near each of them
      {5, 4, 10, 10, 1},  // 30 to 40: the second has no 5 any more
      {9, 4, 0, 0, 3},    // the first has no 9
      {4, 4, 14, 19, 16},
  };
  const auto compared = CompareActivities(first, second, 2);
  EXPECT_EQ(compared.table.Total(), 38);
  for (const auto& [activity, other, seconds, tolerantFirst, tolerantSecond] : cells) {
    SCOPED_TRACE(testing::Message() << activity << " by " << other);
    const auto row = static_cast<std::size_t>(activity);
    const auto column = static_cast<std::size_t>(other);
    EXPECT_EQ(compared.table.At(row, column), seconds);
    EXPECT_EQ(compared.tolerantFirst.At(row, column), tolerantFirst);
    EXPECT_EQ(compared.tolerantSecond.At(row, column), tolerantSecond);
  }
}

TEST(ActivityAgreement, FindsTheStretchesThatDiffer) {
  const auto differing = DifferingStretches(Stretches({{5, 10}, {4, 10}, {1, 10}}),
                                            Stretches({{5, 5}, {9, 3}, {8, 7}, {1, 99}}));
  std::string text;
  for (const SharedStretch& stretch : differing) {
    text += FormatMinSec(stretch.begin) + " to " + FormatMinSec(stretch.end) + " " +
            std::to_string(stretch.first) + " and " + std::to_string(stretch.second) + "\n";
  }
  EXPECT_EQ(text,
            "0:05 to 0:08 5 and 9\n0:08 to 0:10 5 and 8\n0:10 to 0:15 4 and 8\n"
            "0:15 to 0:20 4 and 1\n");
}

TEST(BoundaryAgreement, MatchesAsManyAsThereAreInOrder) {
  const struct {
    Segments first, second;
    int tolerance, ofFirst, ofSecond, both;
  } cases[] = {
      {{{5, 10}, {4, 90}}, {{5, 15}, {4, 85}}, 5, 1, 1, 1},
      {{{5, 10}, {4, 90}}, {{5, 16}, {4, 84}}, 5, 1, 1, 0},
      // 10 and 14 to 13 and 18: the nearest, 14 and 13, would leave only that one.
      {{{5, 10}, {4, 4}, {1, 86}}, {{5, 13}, {4, 5}, {1, 82}}, 4, 2, 2, 2},
      // A segment of no length begins where the next one does: both are starts.
      {{{5, 10}, {4, 0}, {1, 90}}, {{5, 12}, {1, 88}}, 5, 2, 1, 1},
      // Only what both observed counts: 50 lies beyond the second's end.
      {{{5, 50}, {4, 50}}, {{5, 20}, {4, 20}}, 5, 0, 1, 0},
      {{{5, 50}}, {}, 5, 0, 0, 0},
  };
  for (const auto& [first, second, tolerance, ofFirst, ofSecond, both] : cases) {
    const auto compared = CompareBoundaries(Stretches(first), Stretches(second), tolerance);
    EXPECT_EQ(compared.first, ofFirst);
    EXPECT_EQ(compared.second, ofSecond);
    EXPECT_EQ(compared.both, both);
    EXPECT_EQ(compared.Share().has_value(), ofFirst + ofSecond > 0);
  }
}

TEST(ActivityStretches, AreNoneWhereTheTimeCannotBeBelieved) {
  constexpr double kMost = std::numeric_limits<float>::max();
  const std::pair<Segments, std::size_t> cases[] = {
      {{{5, -0.0}, {4, 10}}, 2},
      {{{5, 86400}}, 1},
      {{{5, 86400}, {4, 1}}, 0},
      {{{5, kMost}, {4, kMost}}, 0},
      {{{5, 100}, {4, -1}, {5, 100}}, 0},
      {{{5, std::numeric_limits<float>::quiet_NaN()}}, 0},
      {{}, 0},
  };
  for (const auto& [segments, count] : cases) EXPECT_EQ(Stretches(segments).size(), count);
  const auto halves = Stretches({{5, 10.4}, {18, 10.4}, {-3, 10.4}}, 7);
  EXPECT_EQ(halves.back().end - 7, 31) << "not 30: only the sum is rounded";
  EXPECT_EQ(halves[1].activity, kNoActivity);
}

}  // namespace
}  // namespace orvex
