#include "questions/question_chooser.h"

#include <gtest/gtest.h>

#include "model/episode.h"

namespace orvex {
namespace {

using Rows = std::vector<std::string>;

Episode WithQuestions(int count) {
  Episode episode;
  for (int i = 0; i < count; ++i) episode.questions.emplace_back().question = "a.b, c";
  return episode;
}

TEST(QuestionChooser, NumbersItsRowsWithAsManyDigitsAsNeeded) {
  const std::pair<int, const char*> cases[] = {
      {9, "9.a.b, c"}, {10, "10.a.b, c"}, {100, "100.a.b, c"}};
  for (const auto& [count, last] : cases) {
    const QuestionChooser chooser(WithQuestions(count));
    EXPECT_EQ(chooser.First().rows.back(), last);
    const std::size_t zeros = std::to_string(count).size() - 1;
    EXPECT_EQ(chooser.First().rows.front(), std::string(zeros, '0') + "1.a.b, c");
    EXPECT_EQ(chooser.First().selected, std::vector{1});
    EXPECT_EQ(ListboxItemIndex(chooser.First().rows.back()), count);
  }
  EXPECT_TRUE(QuestionChooser(Episode{}).First().selected.empty());
}

TEST(QuestionChooser, MovesSelectedRowsToTheEndOfTheOtherList) {
  Episode episode;
  for (const char* text : {"A", "B", "C", "D", "E"}) {
    episode.questions.emplace_back().question = text;
  }
  QuestionChooser chooser(episode);
  chooser.SelectFirst({3, 2, 3, 9});
  chooser.MoveToSecond();
  EXPECT_EQ(chooser.First().rows, (Rows{"1.A", "4.D", "5.E"}));
  EXPECT_EQ(chooser.Second().rows, (Rows{"2.B", "3.C"}));
  chooser.MoveToSecond();  // the selection is gone, so nothing moves
  EXPECT_EQ(chooser.First().rows.size(), 3U);
  chooser.SelectFirst({1});
  chooser.MoveToSecond();
  EXPECT_EQ(chooser.SecondNumbers(), (std::vector{2, 3, 1}));
  chooser.SelectSecond({1});
  chooser.MoveToFirst();
  EXPECT_EQ(chooser.First().rows, (Rows{"4.D", "5.E", "2.B"}));
  EXPECT_EQ(chooser.SecondNumbers(), (std::vector{3, 1}));
}

}  // namespace
}  // namespace orvex
