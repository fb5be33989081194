#include "editor/edit_history.h"

#include <gtest/gtest.h>

#include <string>

#include "hostile/allocations.h"

namespace orvex {
namespace {

TEST(EditHistory, AStepTakesMemoryByWhatItChanges) {
  EpisodeList episodes(2);
  for (Episode& episode : episodes) {
    episode.segments.resize(3);
    episode.questions.resize(3000);
    for (questionInfo& question : episode.questions) question.question.assign(100, 'a');
  }
  EditHistory history;
  history.Start(episodes, true);
  const auto taken = [&](auto change) {
    change();
    const std::size_t before = test::AllocatedBytes();
    EXPECT_TRUE(history.Record(episodes, {}));
    return test::AllocatedBytes() - before;
  };
  constexpr std::size_t kStep = 8 * 1024;  // a record or two, and the history of one step
  EXPECT_LT(taken([&] { episodes[0].questions[2000].question += 'b'; }), kStep);
  EXPECT_LT(taken([&] { episodes[1].segments[1].duration = 5; }), kStep);
  EXPECT_LT(taken([&] { episodes[1].questions.erase(episodes[1].questions.begin()); }), kStep);
  const EpisodeList apart = episodes;
  EXPECT_LT(taken([&] {
              Episode& first = episodes[0];
              Episode& second = episodes[1];
              first.segments.insert(first.segments.end(), second.segments.begin(),
                                    second.segments.end());
              first.questions.insert(first.questions.end(), second.questions.begin(),
                                     second.questions.end());
              episodes.pop_back();
            }),
            kStep)
      << "to join episodes moves nothing";
  history.Undo(episodes);
  EXPECT_TRUE(episodes == apart);
}

}  // namespace
}  // namespace orvex
