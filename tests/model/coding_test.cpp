#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "model/question_info.h"
#include "model/validation.h"
#include "support/asked.h"
#include "support/scripted_prompter.h"

namespace orvex {
namespace {

questionInfo Typed(const DimensionTexts& coded) {
  return test::Asked("Why?", coded);
}

std::string Letters(const questionInfo& q) {
  std::string all;
  for (const Dimension dimension : kLetteredDimensions) {
    const std::string_view letter = q.Text(dimension);
    all += letter.empty() ? "-" : letter;
  }
  return all;
}

TEST(QuestionInfo, EveryLetterGoesInAndOutInEitherCase) {
  const std::pair<DimensionTexts, std::string_view> cases[] = {
      {{"T", "Y", "N", "N", "R", "", "Y", "C", "E"}, "TYNNRYCE"},
      {{"s", "n", "a", "t", "h", "", "n", "a", "u"}, "SNATHNAU"},
      {{"S", "Y", "A", "A", "H", "", "N", "o", "U"}, "SYAAHNOU"},
      {{"", "X", "TT", " Y", "é", "", "A", "Y", "S"}, "--------"},
  };
  for (const auto& [typed, shown] : cases) EXPECT_EQ(Letters(Typed(typed)), shown);
}

TEST(QuestionInfo, NormalLeavesNameAndFollowUpOpen) {
  questionInfo q = Typed({"S", "N", "A", "T", "H", "Ana", "Y", "C", "E"});
  q.SetNormal();
  EXPECT_EQ(Letters(q), "TYNNRN-U");
  EXPECT_EQ(q.respondName, "Ana");
  q.codes[Dimension::tResponse] = 2;
  EXPECT_TRUE(q.IsNormal());
  q.codes[Dimension::elaborated] = kUncoded;
  EXPECT_FALSE(q.IsNormal());
}

/// A question with only its source and response coded.
questionInfo Coded(std::string_view src, std::string_view rspns) {
  return Typed({src, rspns});
}

TEST(Validation, WhatAQuestionMustCarryFollowsSourceAndResponse) {
  using enum Dimension;
  const std::tuple<const char*, const char*, std::vector<Dimension>> cases[] = {
      {"S", "", {response, respondName}},
      {"", "Y", {source}},
      {"T", "N", {}},
      {"S", "N", {respondName}},
      {"T", "Y", {authenticity, uptake, cognitive, respondName, onePartOfMulti, elaborated}},
      {"S", "Y", {authenticity, uptake, cognitive, respondName, tResponse, elaborated}},
  };
  for (const auto& [src, rspns, missing] : cases) {
    EXPECT_EQ(FindMissingCodes(Coded(src, rspns)).dimensions, missing) << src << rspns;
  }
  EXPECT_TRUE(FindMissingCodes(questionInfo{}).text);
}

TEST(Validation, TheSearchGoesRoundOnceAndSaysWhenNothingIsLeft) {
  EpisodeList episodes(3);
  const questionInfo complete = Coded("T", "N");
  episodes[0].questions = {complete, complete};
  episodes[1].questions = {Coded("", "Y"), complete, complete, complete};
  using Place = std::pair<int, int>;
  for (auto [ep, q] : {Place{2, 3}, {1, 1}, {3, 1}, {2, 1}, {0, 0}, {9, 40}}) {
    EXPECT_EQ(FindUncodedQuestion(episodes, ep, q), 1);
    EXPECT_EQ(Place(ep, q), Place(2, 1));
  }
  episodes[1].questions[0] = complete;
  auto [ep, q] = Place(2, 7);
  EXPECT_EQ(FindUncodedQuestion(episodes, ep, q), -1);
  EXPECT_EQ(Place(ep, q), Place(2, 7));
}

}  // namespace
}  // namespace orvex
