#include "model/validation.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/scripted_prompter.h"

namespace orvex {
namespace {

using enum Dimension;

questionInfo Question(std::string_view src, std::string_view rspns) {
  questionInfo q;
  q.SetValue("Why?", src, rspns, "", "", "", "", "", "", "", 1, 1);
  return q;
}

questionInfo Complete() {
  questionInfo q;
  q.SetValue("Why?", "T", "Y", "N", "N", "R", "Ana", "N", "", "U", 1, 1);
  return q;
}

TEST(Validation, WhatAQuestionMustCarryFollowsSourceAndResponse) {
  struct Case {
    std::string_view src, rspns;
    std::vector<Dimension> missing;
  };
  const Case cases[] = {
      {"", "", {source, response}},
      {"T", "", {response}},
      {"S", "", {response, respondName}},
      {"", "Y", {source}},
      {"T", "N", {}},
      {"S", "N", {respondName}},
      {"T", "Y", {authenticity, uptake, cognitive, respondName, onePartOfMulti, elaborated}},
      {"S", "Y", {authenticity, uptake, cognitive, respondName, tResponse, elaborated}},
  };
  for (const Case& c : cases) {
    const MissingCodes missing = FindMissingCodes(Question(c.src, c.rspns));
    EXPECT_EQ(missing.dimensions, c.missing) << c.src << c.rspns;
    EXPECT_FALSE(missing.text);
  }
  EXPECT_TRUE(FindMissingCodes(questionInfo{}).text);
  EXPECT_TRUE(FindMissingCodes(Complete()).None());
}

TEST(Validation, TheSearchGoesRoundOnce) {
  test::ScriptedPrompter prompter;
  EpisodeList episodes(3);
  episodes[0].questions = {Complete(), Complete()};
  episodes[1].questions = {Question("", "Y"), Complete(), Complete(), Complete()};
  struct Case {
    int ep, q;
  };
  for (const Case& start :
       {Case{2, 3}, {1, 1}, {3, 1}, {2, 1}, {0, 0}, {9, 1}, {1, 40}, {-1, -1}}) {
    int ep = start.ep;
    int q = start.q;
    EXPECT_EQ(FindUncodedQuestion(episodes, ep, q, prompter), 1) << start.ep << " " << start.q;
    EXPECT_EQ(ep, 2);
    EXPECT_EQ(q, 1);
  }
}

TEST(Validation, WhenNothingIsLeftItSaysSoAndStaysWhereItWas) {
  test::ScriptedPrompter prompter;
  EpisodeList episodes(2);
  episodes[1].questions = {Complete()};
  for (const EpisodeList& list : {EpisodeList{}, episodes}) {
    prompter.Expect("Everything coded; no invalid codes found", Answer::ok);
    int ep = 2;
    int q = 7;
    EXPECT_EQ(FindUncodedQuestion(list, ep, q, prompter), -1);
    EXPECT_EQ(ep, 2);
    EXPECT_EQ(q, 7);
  }
}

}  // namespace
}  // namespace orvex
