#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/episode.h"
#include "model/segment_data.h"
#include "model/time_of_day.h"
#include "support/scripted_prompter.h"

namespace orvex {
namespace {

TEST(SegmentData, DurationsAreWholeSecondsOfADayThatMayHaveEnded) {
  const std::vector<std::pair<float, float>> cases = {
      {12.5F, 12}, {13.5F, 14}, {12.6F, 13}, {-0.4F, 86400}, {-10, 86390}};
  for (const auto& [given, stored] : cases) {
    SegmentData segment;
    segment.SetData(16, given);
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
      asked[i].codes[Dimension::source] = CodeOf(Dimension::source, sources.substr(i, 1));
    }
    EXPECT_EQ(FindDialogicSpells(asked), spells) << sources;
  }
}

}  // namespace
}  // namespace orvex
