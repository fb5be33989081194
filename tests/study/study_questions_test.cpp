#include "study/study_questions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "study/study.h"
#include "study/study_folder.h"

namespace orvex::test {
namespace {

questionInfo Coded(std::string_view text, std::string_view letters, std::string_view respondent,
                   std::int16_t segment) {
  DimensionTexts coded;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    coded[kLetteredDimensions[i]] = letters.substr(i, 1);
  }
  coded[Dimension::respondName] = respondent;
  questionInfo question;
  question.SetValue(text, coded, 1, segment);
  return question;
}

TEST(StudyQuestions, AreFoundByWordsAndCodes) {
  const TestFolder data;
  Episode first = Lesson(60, {Coded("Why did ÉMILE go?", "TYNNRN U", "Zoë", 1),
                              Coded("What is a source?", "SYATH OE", "Émile", 2)});
  first.segments.emplace_back().SetData(6, 30);
  Episode second =
      Lesson(60, {Coded("Why not?", "TN      ", "", 1), Coded("And", "TYN R", "x", 9)}, 14);
  PutFile(data / "5-1-10.eps", EpsBytes(Numbers("5-1-10"), {first}));
  PutFile(data / "5-1-9.eps", EpsBytes(Numbers("5-1-9"), {first, second}));
  Study study(data.Path());
  StudyQuestions& questions = study.Questions();

  struct Case {
    const char* filter;
    std::vector<std::string> found;  ///< observation, episode and question
    const char* trouble = "";
  };
  const std::string ten = "5-1-10 ";
  const std::string nine = "5-1-9 ";
  const std::vector<Case> cases = {
      {"", {nine + "1 1", nine + "1 2", nine + "2 1", nine + "2 2", ten + "1 1", ten + "1 2"}},
      {"émile", {nine + "1 1", nine + "1 2", ten + "1 1", ten + "1 2"}},
      {"émile WHY", {nine + "1 1", ten + "1 1"}},
      {"source s", {nine + "1 2", ten + "1 2"}},
      {"\"source\" what", {nine + "1 2", ten + "1 2"}},
      {"a source", {nine + "1 2", ten + "1 2"}},
      {"authenticity - source T", {nine + "2 1"}},
      {"uptake -", {nine + "2 1", nine + "2 2"}},
      {"up T", {nine + "1 2", ten + "1 2"}},
      {"Cognitive Level h episode 1", {nine + "1 2", ten + "1 2"}},
      {"cognitive_level R and", {nine + "2 2"}},
      {"Close down/Answer/Open up o", {nine + "1 2", ten + "1 2"}},
      {"activity 5 why", {nine + "1 1", ten + "1 1"}},
      {"activity Discussion", {nine + "1 2", ten + "1 2"}},
      {"activity supervised/h", {nine + "2 1"}},
      {"episode 2", {nine + "2 1", nine + "2 2"}},
      {"source T source S", {}},
      {"source X", {}, "Source has no code x. It takes T, S, and - where it is not coded."},
      {"activity 18", {}, "There is no activity 18."},
  };
  for (const Case& one : cases) {
    questions.SetFilter(one.filter);
    study.AwaitQuiet();
    std::vector<std::string> found;
    for (std::size_t i = 0; i < questions.Count(); ++i) {
      const QuestionRow row = questions.Row(i);
      found.push_back(row.observation->name + " " + std::to_string(row.episode) + " " +
                      std::to_string(row.number));
      EXPECT_EQ(questions.Find(row.observation->name, row.episode, row.number), i);
    }
    EXPECT_EQ(found, one.found) << one.filter;
    EXPECT_EQ(questions.FilterTrouble(), one.trouble);
  }

  questions.SetFilter("émile source S");
  EXPECT_EQ(questions.CountText(), "2 of 6 questions");
  const QuestionRow row = questions.Row(1);
  EXPECT_EQ(row.text, "What is a source?");
  EXPECT_EQ(row.codes[Dimension::respondName], "Émile");
  EXPECT_EQ(row.codes[Dimension::uptake], "T");
  EXPECT_EQ(row.codes[Dimension::onePartOfMulti], "");
  EXPECT_EQ(row.activity, 6);

  // They follow their files, with the filter as it is.
  PutFile(data / "5-1-9.eps", EpsBytes(Numbers("5-1-9"), {second}));
  study.LookForChanges();
  study.AwaitQuiet();
  EXPECT_EQ(questions.CountText(), "1 of 4 questions");
}

}  // namespace
}  // namespace orvex::test
