#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <utility>

#include "agreement/comparison.h"
#include "agreement/observed.h"
#include "agreement/pair_table.h"
#include "store/format_error.h"
#include "support/sample_pairs.h"

namespace orvex {
namespace {

using test::InShort;
using test::Observed;

QuestionPairs PairsOf(const std::vector<test::Wrote>& first,
                      const std::vector<test::Wrote>& second) {
  return Comparison(Observed("AB", first), Observed("MN", second)).Result().pairs;
}

TEST(Pairing, KnowsAQuestionInOtherWords) {
  // All of these stand among questions that nobody would take for them.
  const std::vector<std::pair<std::string, std::string>> same = {
      {"Why does the author repeat the word \"home\"?", "WHY DOES THE AUTHOR REPEAT THE WORD HOME"},
      {"Wihch of thse two quotations is stronger?", "quotations stronger"},
      {"wht do u thk the auth. means by that", "What do you think the author means by that?"},
      {"What is the conflict between Jonas & Scout", "what is the conflict btw jonas and scout"},
      {"How does this connect to...", "How does this connect to being an outsider?"},
      {"Que signifie « l'été » ?", "que signifie l’ete"},
      {"Où est-ce que l'élève a trouvé la clé ?", "OU EST-CE QUE L'ELEVE A TROUVE"},
      {"what's 3 + 4", "Whats 3+4?"},
      {"y?", "Why?"},
      {"", ""},
      {"???", "???"}};
  const std::vector<std::pair<std::string, std::string>> others = {
      {"Why?", "Who?"},
      {"21?", "24?"},
      {"Is seventeen prime?", "Whose fault is it in the end?"},
      {"What does Scout mean by that?", "What does the weather in this scene suggest?"},
      {"", "Why?"}};
  for (const auto& [first, second] : same) {
    EXPECT_EQ(InShort(PairsOf({test::Wrote(first)}, {test::Wrote(second)})), "1-1")
        << first << " | " << second;
    EXPECT_EQ(InShort(PairsOf({test::Wrote(second)}, {test::Wrote(first)})), "1-1")
        << second << " | " << first;
  }
  for (const auto& [first, second] : others) {
    EXPECT_EQ(InShort(PairsOf({test::Wrote(first)}, {test::Wrote(second)})), "1- -1")
        << first << " | " << second;
  }
}

TEST(Pairing, GoesByOrderAndPlace) {
  EXPECT_EQ(InShort(PairsOf({"Why?", "Who else?", "Anyone?", "Why?"}, {"Really?", "Why?"})),
            "-1 1-2 2- 3- 4-")
      << "the nearer of equals";
  EXPECT_EQ(InShort(PairsOf({"So?", "structure of plot", "Why?"}, {"So?", "this chapter", "Why?"})),
            "1-1 2-2 3-3")
      << "alone between two pairs";
  EXPECT_EQ(InShort(PairsOf({"So?", "plot", "Hm", "Why?"}, {"So?", "this chapter", "Why?"})),
            "1-1 2- 3- -2 4-3")
      << "not alone";
  EXPECT_EQ(InShort(PairsOf({"So?", "Is seventeen prime?", "Really?", "Why?"},
                            {"So?", "Is seventeen prime?", "Who broke the old window?", "Why?"})),
            "1-1 2-2 3-3 4-4")
      << "one is a note";
  EXPECT_EQ(InShort(PairsOf({"So?", "Can you tell us the year?", "Why?"},
                            {"So?", "Who broke that old window?", "Why?"})),
            "1-1 2- -2 3-3")
      << "two whole sentences";
  EXPECT_EQ(InShort(PairsOf({}, {"Why?", "So?"})), "-1 -2");
}

TEST(Pairing, CutsAClassThatIsLongerThanAnyAtTheSameTimeOfBoth) {
  std::vector<test::Wrote> questions;
  for (int i = 0; i < 4100; ++i) questions.emplace_back("Who is " + std::to_string(i % 50) + "?");
  const QuestionPairs pairs = PairsOf(questions, questions);
  ASSERT_EQ(pairs.size(), questions.size());
  for (std::size_t i = 0; i < pairs.size(); ++i) EXPECT_EQ(pairs[i], (QuestionPair{i, i}));
}

/// The run of equal questions that each question belongs to: of neighbours with the same text it
/// cannot be said which is whose partner.
std::vector<std::size_t> RunsOf(const std::vector<AskedQuestion>& questions) {
  std::vector<std::size_t> runs;
  std::string last;
  for (const AskedQuestion& asked : questions) {
    std::string text = asked.question->question;
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::tolower(c); });
    runs.push_back(runs.empty() ? 0 : runs.back() + (text == last ? 0 : 1));
    last = text;
  }
  return runs;
}

/// How many pairs of both there are between which runs.
std::map<std::pair<std::size_t, std::size_t>, int> Counted(const QuestionPairs& pairs,
                                                           const std::vector<std::size_t>& first,
                                                           const std::vector<std::size_t>& second) {
  std::map<std::pair<std::size_t, std::size_t>, int> counts;
  for (const QuestionPair& pair : pairs) {
    if (pair.IsOfBoth()) ++counts[{first[*pair.first], second[*pair.second]}];
  }
  return counts;
}

TEST(Pairing, FindsTheTruePairsOfTheSamples) {
  int trueOnes = 0;
  int made = 0;
  int right = 0;
  for (const test::SamplePair& sample : test::SamplePairs()) {
    const ObservedClass first = ReadObservedClass(sample.first);
    const ObservedClass second = ReadObservedClass(sample.second);
    const auto firstQuestions = QuestionsOf(first.observation.Episodes);
    const auto secondQuestions = QuestionsOf(second.observation.Episodes);
    const auto firstRuns = RunsOf(firstQuestions);
    const auto secondRuns = RunsOf(secondQuestions);
    const auto truth =
        Counted(ReadPairTable(sample.truePairs, firstQuestions.size(), secondQuestions.size()),
                firstRuns, secondRuns);
    const auto found = Counted(Comparison(first, second).Result().pairs, firstRuns, secondRuns);
    EXPECT_TRUE(!truth.empty() || found.empty()) << sample.name << ": nothing is in common";
    for (const auto& [runs, count] : truth) trueOnes += count;
    for (const auto& [runs, count] : found) {
      made += count;
      if (truth.contains(runs)) right += std::min(count, truth.at(runs));
    }
  }
  // A good part of the few classes that are kept here asks the same short questions again and
  // again.
  const bool all = test::SamplePairs().size() > 10;
  EXPECT_GE(right, (all ? 0.98 : 0.96) * trueOnes);
  EXPECT_GE(right, (all ? 0.97 : 0.95) * made);
}

TEST(PairTable, IsReadAsItWasWritten) {
  const QuestionPairs pairs = {{0, 0}, {1, {}}, {{}, 1}, {2, 2}, {{}, 3}};
  EXPECT_EQ(PairTableText(pairs), "first,second\r\n1,1\r\n2,\r\n,2\r\n3,3\r\n,4\r\n");
  EXPECT_EQ(ParsePairTable(PairTableText(pairs), 3, 4), pairs);
  EXPECT_EQ(InShort(ParsePairTable("first,second\r\n2,2\r\n", 2, 3)), "1- -1 2-2 -3")
      << "what is left out has no partner";
}

TEST(PairTable, TakesWhatSpreadsheetsWrite) {
  for (const char* table :
       {"first,second\r\n2,1\r\n", "\xEF\xBB\xBF\"first\",\"second\"\n\"2\",\"1\"\n",
        "first;second\n2;1", "first,second\r\n\r\n,2\r\n 2 , 1 \r\n1,\r\n",
        "first\tsecond\n2\t1\n"}) {
    EXPECT_EQ(InShort(ParsePairTable(table, 2, 2)), "1- 2-1 -2") << table;
  }
}

TEST(PairTable, SaysWhatIsWrongAndWhere) {
  const std::vector<std::pair<std::string, std::string>> wrong = {
      {"", "line 1: expected the header \"first,second\""},
      {"1,1\n", "line 1: expected the header \"first,second\""},
      {"first,second\n1,1\n4,2\n",
       "line 3, field 1: expected the number of a question of the first observer, from 1 to 3, "
       "found \"4\""},
      {"first,second\n1,x\n",
       "line 2, field 2: expected the number of a question of the second observer, from 1 to 3, "
       "found \"x\""},
      {"first,second\n0,1\n",
       "line 2, field 1: expected the number of a question of the first observer, from 1 to 3, "
       "found \"0\""},
      {"first,second\n1,1\n2,1\n", "line 3, field 2: question 1 stands in line 2 already"},
      {"first,second\n1,1,1\n", "line 2: expected two cells, found 3"},
      {"first,second\n,\n", "line 2: expected the number of a question in one of the cells"},
      {"first,second\n2,1\n1,2\n",
       "line 3: the pair crosses the one of line 2: both observers heard the questions in the same "
       "order"}};
  for (const auto& [table, message] : wrong) {
    try {
      ParsePairTable(table, 3, 3);
      ADD_FAILURE() << table;
    } catch (const FormatError& error) {
      EXPECT_EQ(error.what(), message) << table;
    }
  }
}

}  // namespace
}  // namespace orvex
