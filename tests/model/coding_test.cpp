#include <gtest/gtest.h>

#include <array>
#include <iterator>
#include <string>
#include <string_view>

#include "model/question_info.h"

namespace orvex {
namespace {

questionInfo WithLetters(std::string_view src, std::string_view rspns, std::string_view auth,
                         std::string_view uptake, std::string_view coglev, std::string_view pfMany,
                         std::string_view tResp, std::string_view elab) {
  questionInfo q;
  q.SetValue("Why?", src, rspns, auth, uptake, coglev, "Ana", pfMany, tResp, elab, 2, 5);
  return q;
}

std::string Letters(const questionInfo& q) {
  std::string all;
  for (const auto letter : {q.strSrc(), q.strRspns(), q.strAuth(), q.strUptake(), q.strCogLev(),
                            q.strPFMany(), q.strTResp(), q.strElab()}) {
    all += letter.empty() ? "-" : letter;
  }
  return all;
}

TEST(QuestionInfo, EveryLetterGoesInAndOutInEitherCase) {
  struct Case {
    std::array<std::string_view, 8> typed;
    std::string_view shown;
  };
  const Case cases[] = {
      {{"T", "Y", "N", "N", "R", "Y", "C", "E"}, "TYNNRYCE"},
      {{"s", "n", "a", "t", "h", "n", "a", "u"}, "SNATHNAU"},
      {{"S", "Y", "A", "A", "H", "N", "o", "U"}, "SYAAHNOU"},
      {{"", "X", "T", "R", "N", "A", "Y", "S"}, "--------"},
      {{"TT", " Y", "N ", "é", "RH", "YN", "CA", "EU"}, "--------"},
  };
  for (const Case& c : cases) {
    const auto& t = c.typed;
    EXPECT_EQ(Letters(WithLetters(t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7])), c.shown);
  }
}

TEST(QuestionInfo, ValuesOutsideTheTable) {
  questionInfo q;
  EXPECT_EQ(Letters(q), "--------");
  q.Source = q.Response = q.cognitive = 5;
  q.authenticity = q.uptake = q.onePartOfMulti = q.tResponse = q.elaborated = 5;
  EXPECT_EQ(Letters(q), "SN--H---");
  q.Source = q.uptake = -2;
  EXPECT_EQ(Letters(q), "SN--H---");
}

TEST(QuestionInfo, NormalLeavesNameAndFollowUpOpen) {
  questionInfo q = WithLetters("S", "N", "A", "T", "H", "Y", "C", "E");
  EXPECT_FALSE(q.IsNormal());
  q.SetNormal();
  EXPECT_EQ(Letters(q), "TYNNRN-U");
  EXPECT_TRUE(q.IsNormal());
  EXPECT_EQ(q.respondName, "Ana");
  q.tResponse = 2;
  q.respondName.clear();
  EXPECT_TRUE(q.IsNormal());
  q.elaborated = kUncoded;
  EXPECT_FALSE(q.IsNormal());
  EXPECT_FALSE(questionInfo{}.IsNormal());
}

TEST(QuestionInfo, CopyTakesTheCodesAndOnRequestTheText) {
  questionInfo from = WithLetters("S", "Y", "A", "T", "H", "N", "O", "E");
  from.bSkip = true;
  questionInfo codesOnly;
  codesOnly.question = "Mine";
  codesOnly.iEpQ = 9;
  codesOnly.Copy(from, false);
  EXPECT_EQ(Letters(codesOnly), Letters(from));
  EXPECT_EQ(codesOnly.respondName, "Ana");
  EXPECT_EQ(codesOnly.question, "Mine");
  EXPECT_EQ(codesOnly.iEpQ, 9);
  EXPECT_EQ(codesOnly.iSgQ, 0);
  EXPECT_FALSE(codesOnly.bSkip);
  questionInfo withText;
  withText.Copy(from);
  EXPECT_EQ(withText.question, "Why?");
}

TEST(CodingScheme, TablesThatDifferInOneEntryOnly) {
  EXPECT_EQ(ActivityNames[0], "Procedures && directions");
  EXPECT_EQ(ActivityTexts[0], "Procedures & directions");
  for (std::size_t i = 1; i < ActivityNames.size(); ++i) {
    EXPECT_EQ(ActivityNames[i], ActivityTexts[i]);
  }
}

TEST(CodingScheme, TextsThatUsersKnow) {
  struct Case {
    const char* label;
    std::size_t blanks;
    const char* entryCaption;
  };
  constexpr Case kDimensions[] = {
      {"Source", 14, "Source (T*/S) :"},
      {"Response", 16, "Response (Y*/N) :"},
      {"Authenticity", 24, "Authenticity (N*/A) :"},
      {"Uptake", 12, "Uptake (N*/T/A) :"},
      {"Cognitive Level", 28, "Cognitive Level (R*/H) :"},
      {"Who answers question?", 36, "Who answers question?"},
      {"One part of multiple response", 42, "One part of multiple response (Y/N*) :"},
      {"Close down/Answer/Open up", 42, "Close down/Answer/Open up(C/A*/O) :"},
      {"Elaborated/Unelaborated", 36, "Elaborated/Unelaborated (E/U*) :"},
  };
  static_assert(std::size(kDimensions) == kDimensionCount);
  for (std::size_t i = 0; i < std::size(kDimensions); ++i) {
    const auto& [label, blanks, entryCaption] = kDimensions[i];
    EXPECT_EQ(DimensionLabels[i].Label, label);
    EXPECT_EQ(DimensionLabels[i].Blank, std::string(blanks, ' ')) << label;
    EXPECT_EQ(SchemeOf(static_cast<Dimension>(i)).entryCaption, entryCaption);
  }
  const std::array<std::string_view, 5> groupWork = {
      "Teacher-structured group work", "Prescripted task with obligatory student interaction",
      "Limited student interaction", "Significant student interaction", "Autonomous group work"};
  EXPECT_EQ(GroupWorkSubCats, groupWork);
}

}  // namespace
}  // namespace orvex
