#include "agreement/comparison.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "agreement/agreement_text.h"
#include "agreement/observed.h"
#include "agreement/paper_line.h"
#include "agreement/same_questions.h"
#include "agreement/training.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/storage.h"
#include "support/sample_pairs.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using test::InShort;
using test::Observed;
using Rows = std::vector<std::size_t>;

constexpr std::size_t kSource = 0;
constexpr std::size_t kAuthenticity = 2;
constexpr std::size_t kNormal = 8;

/// AB has four questions, MN three, of which the first two are the same: rows 1-1, 2-2, 3-, 4-, -3.
/// They differ on whether the second is authentic, which MN left out.
Comparison Compared() {
  return {
      Observed("AB",
               {"Who is speaking here?", {"What is the moral?", "TYA"}, "Anyone?", "Like what?"}),
      Observed("MN", {"who is speaking", {"what is the moral", "TY-"}, "Jonas and the river"})};
}

std::string PairsOf(const Comparison& comparison) {
  return InShort(comparison.Result().pairs);
}

TEST(Comparison, ShowsWhatIsToBeSeen) {
  const Comparison comparison = Compared();
  ASSERT_EQ(PairsOf(comparison), "1-1 2-2 3- 4- -3");
  EXPECT_EQ(comparison.Shown(false, {}), (Rows{0, 1, 2, 3, 4}));
  EXPECT_EQ(comparison.Shown(true, {}), (Rows{1, 2, 3, 4}));
  EXPECT_EQ(comparison.Shown(false, kAuthenticity), (Rows{0, 1}));
  EXPECT_EQ(comparison.Shown(true, kAuthenticity), (Rows{1}));
  EXPECT_EQ(comparison.Shown(true, kSource), Rows());
  EXPECT_EQ(comparison.Shown(false, 6), Rows()) << "neither coded it";
  EXPECT_EQ(comparison.RowsOfCell(kAuthenticity, 0, 0), (Rows{0}));
  EXPECT_EQ(comparison.RowsOfCell(kSource, 0, 0), (Rows{0, 1}));
  EXPECT_EQ(comparison.RowsOfCell(kNormal, 1, 1), (Rows{0, 1}));

  EXPECT_EQ(comparison.NextDisagreement(0, true), 1U);
  EXPECT_EQ(comparison.NextDisagreement(1, true), 2U);
  EXPECT_EQ(comparison.NextDisagreement(4, true), std::nullopt);
  EXPECT_EQ(comparison.NextDisagreement(2, false), 1U);
  EXPECT_EQ(comparison.NextDisagreement(1, false), std::nullopt);
  EXPECT_EQ(comparison.NextDisagreement(1, true, kAuthenticity), std::nullopt);
}

TEST(Comparison, PairsAndPartsByHand) {
  Comparison comparison = Compared();
  EXPECT_FALSE(comparison.CanPair(2, 3)) << "both are of the first observer";
  EXPECT_FALSE(comparison.CanPair(0, 4)) << "one is a pair";
  EXPECT_EQ(comparison.NearestPartner(4), 2U);
  EXPECT_EQ(comparison.NearestPartner(0), std::nullopt);

  EXPECT_EQ(comparison.Pair(4, 3), 3U);
  EXPECT_EQ(PairsOf(comparison), "1-1 2-2 3- 4-3");
  EXPECT_EQ(comparison.Result().BothQuestions(), 3U);
  EXPECT_TRUE(comparison.Result().pairsGiven);
  EXPECT_EQ(comparison.Unpair(0), 0U);
  EXPECT_EQ(PairsOf(comparison), "1- -1 2-2 3- 4-3");
  EXPECT_FALSE(comparison.CanPair(1, 3)) << "that would cross a pair";
  EXPECT_TRUE(comparison.CanPair(1, 0));

  comparison.SetOffset(200);
  EXPECT_EQ(PairsOf(comparison), "1- -1 2-2 3- 4-3") << "what was done by hand stays";
  comparison.Undo();
  EXPECT_EQ(PairsOf(comparison), "1-1 2-2 3- 4-3");
  EXPECT_TRUE(comparison.UnsavedPairs());
  comparison.Undo();
  EXPECT_EQ(PairsOf(comparison), "1-1 2-2 3- 4- -3");
  EXPECT_FALSE(comparison.CanUndo());
  EXPECT_FALSE(comparison.UnsavedPairs());
  EXPECT_FALSE(comparison.Result().pairsGiven);
  comparison.Redo();
  EXPECT_EQ(PairsOf(comparison), "1-1 2-2 3- 4-3");
  comparison.PairByWords();
  EXPECT_FALSE(comparison.CanRedo());
  EXPECT_FALSE(comparison.Result().pairsGiven);
}

TEST(Comparison, FollowsItsOptions) {
  Comparison comparison(Observed("AB", {"Why?", "Is the ending sad?", "So?", "Anyone?", "Why?"}),
                        Observed("MN", {"Why?"}));
  EXPECT_EQ(PairsOf(comparison), "1-1 2- 3- 4- 5-");
  comparison.SetOffset(40);
  EXPECT_EQ(PairsOf(comparison), "1- 2- 3- 4- 5-1");
  EXPECT_EQ(comparison.Result().offset.from, Offset::From::given);
  comparison.SetOffset({});
  EXPECT_EQ(comparison.Result().offset.from, Offset::From::start);
  comparison.SetTolerance(9);
  EXPECT_EQ(comparison.Result().activities.tolerance, 9);
}

TEST(Comparison, KeepsPairsInATable) {
  const test::TestFolder folder;
  Storage storage;
  Comparison comparison = Compared();
  comparison.Pair(4, 2);
  EXPECT_THROW(comparison.SavePairs(folder / "missing/pairs.csv", storage), FileError);
  EXPECT_TRUE(comparison.UnsavedPairs());
  comparison.SavePairs(folder / "pairs.csv", storage);
  EXPECT_FALSE(comparison.UnsavedPairs());
  comparison.Unpair(0);
  EXPECT_TRUE(comparison.UnsavedPairs());
  comparison.LoadPairs(folder / "pairs.csv");
  EXPECT_EQ(PairsOf(comparison), "1-1 2-2 3-3 4-");
  EXPECT_FALSE(comparison.UnsavedPairs());
  comparison.Undo();
  EXPECT_TRUE(comparison.UnsavedPairs());

  test::PutFile(folder / "wrong.csv", "first,second\r\n9,1\r\n");
  EXPECT_THROW(comparison.LoadPairs(folder / "wrong.csv"), FormatError);
  EXPECT_EQ(PairsOf(comparison), "1- -1 2-2 3-3 4-");
}

TEST(Comparison, ReadsItsFilesAgain) {
  const auto samples = test::SamplePairs();
  const auto sample =
      std::ranges::find_if(samples, [](const auto& pair) { return pair.name.starts_with("35-6"); });
  const test::TestFolder folder;
  std::filesystem::copy_file(sample->first, folder / "35-6-1.eps");
  std::filesystem::copy_file(sample->second, folder / "35-6-2.eps");
  Comparison comparison(ReadObservedClass(folder / "35-6-1.eps"),
                        ReadObservedClass(folder / "35-6-2.eps"));
  const auto& rows = comparison.Rows();
  const auto both =
      std::ranges::find_if(rows, [](const PairRow& row) { return row.pair.IsOfBoth(); });
  comparison.Unpair(static_cast<std::size_t>(both - rows.begin()));
  const std::string pairs = PairsOf(comparison);

  const auto reload = [&] {
    return comparison.Reload(ReadObservedClass(comparison.First().file),
                             ReadObservedClass(comparison.Second().file));
  };
  // The same questions, one of them in other words.
  const std::string bytes = test::FileBytes(folder / "35-6-1.eps");
  std::string edited = bytes;
  edited.replace(edited.find("Really"), 6, "Unreal");
  test::PutFile(folder / "35-6-1.eps", edited);
  reload();
  EXPECT_EQ(PairsOf(comparison), pairs);
  EXPECT_TRUE(std::ranges::any_of(comparison.Rows(), [](const PairRow& row) {
    return row.first != nullptr && row.first->question->question.starts_with("Unreal");
  }));

  test::PutFile(folder / "35-6-1.eps", bytes.substr(0, bytes.size() / 2));
  EXPECT_THROW(reload(), FormatError);
  EXPECT_EQ(PairsOf(comparison), pairs);
  EXPECT_TRUE(comparison.CanUndo());

  // A file with the other's questions: the pairs whose questions are gone are counted.
  const std::size_t before = comparison.Result().BothQuestions();
  std::filesystem::copy_file(sample->second, folder / "35-6-1.eps",
                             std::filesystem::copy_options::overwrite_existing);
  const std::size_t gone = reload();
  EXPECT_EQ(comparison.Result().BothQuestions() + gone, before);
  EXPECT_GT(comparison.Result().BothQuestions(), before / 2);
  comparison.PairByWords();
  EXPECT_EQ(comparison.Result().QuestionShare(), 1);
}

TEST(SameQuestions, AreKnownAgainAfterAnEdit) {
  using Texts = std::vector<test::Wrote>;
  const Texts before = {"Why?", {"Who wrote it?", "TYA"}, "Why?", "Where is the farm?", "So?"};
  const struct {
    const char* edit;
    Texts after;
    const char* pairs;
  } cases[] = {
      {"nothing", before, "1-1 2-2 3-3 4-4 5-5"},
      {"first gone", {before.begin() + 1, before.end()}, "1- 2-1 3-2 4-3 5-4"},
      {"one of two alike gone",
       {"Why?", {"Who wrote it?", "TYA"}, "Where is the farm?", "So?"},
       "1-1 2-2 3- 4-3 5-4"},
      {"one new at the begin",
       {"Ready?", "Why?", {"Who wrote it?", "TYA"}, "Why?", "Where is the farm?", "So?"},
       "-1 1-2 2-3 3-4 4-5 5-6"},
      {"coded anew and reworded",
       {"Why?", {"Who wrote it?", "TYN"}, "How come?", "where is that farm", "So?"},
       "1-1 2-2 3-3 4-4 5-5"},
      {"one gone, another new",
       {{"Who wrote it?", "TYA"}, "Why?", "Where is the farm?", "Anyone?", "So?"},
       "1- 2-1 3-2 4-3 -4 5-5"},
      {"all gone", {}, "1- 2- 3- 4- 5-"},
  };
  const ObservedClass old = Observed("AB", before);
  for (const auto& edit : cases) {
    const ObservedClass edited = Observed("AB", edit.after);
    const auto same = SameQuestions(QuestionsOf(old.observation.Episodes),
                                    QuestionsOf(edited.observation.Episodes));
    EXPECT_EQ(InShort(PairsFrom(same, edit.after.size())), edit.pairs) << edit.edit;
  }
}

TEST(Training, CountsWhatTheTraineeFound) {
  Comparison comparison = Compared();
  comparison.SetMaster(Master::first);
  EXPECT_EQ(TextOf(TrainingOf(comparison)),
            "TRAINEE\tOf the master's\tFound\tMissed\tAdded\tCoded otherwise\n"
            "Questions\t4\t2\t2\t1\t1\n"
            "Source: T (Teacher question)\t4\t2\t2\t1\t0\n"
            "Response: Y (Response)\t4\t2\t2\t1\t0\n"
            "Authenticity: N (Not authentic)\t3\t1\t2\t1\t0\n"
            "Authenticity: A (Authentic)\t1\t0\t0\t0\t1\n");
  comparison.SetMaster(Master::second);
  const Training training = TrainingOf(comparison);
  EXPECT_EQ(training.missed, 1U);
  EXPECT_EQ(training.added, 2U);
  EXPECT_EQ(training.codes.back().added, 1U) << "authentic, which the master left out";
}

TEST(AgreementText, TellsDisagreementsAndTables) {
  Comparison comparison = Compared();
  EXPECT_EQ(DisagreementsText(comparison),
            "Disagreement\tAB\tQuestion\tMN\tQuestion\tCodes\n"
            "\u2260 coded otherwise\t1.2\tWhat is the moral?\t1.2\twhat is the moral\t"
            "Authenticity A / -\n"
            "only AB\t1.3\tAnyone?\t\t\t\n"
            "only AB\t1.4\tLike what?\t\t\t\n"
            "only MN\t\t\t1.3\tJonas and the river\t\n");
  EXPECT_EQ(ConfusionText(comparison.Result(), kAuthenticity),
            "Authenticity: AB in rows, MN in columns\n"
            "\tN\tA\tSum\nN\t1\t0\t1\nA\t0\t0\t0\nSum\t1\t0\t1\n");
  EXPECT_EQ(ConfusionText(comparison.Result(), {}),
            "Activities, in seconds: AB in rows, MN in columns\n"
            "\tQuestion/Answer\tSum\nQuestion/Answer\t30\t30\nSum\t30\t30\n");
}

TEST(AgreementText, SaysAFigureTheSameWayEverywhere) {
  Comparison comparison = Compared();
  comparison.SetMaster(Master::second);
  EXPECT_TRUE(DisagreementsText(comparison).find("\nadded\t1.3") != std::string::npos);
  const std::string text = TextOf(comparison.Result());
  for (const char* line : {"First\t5-12-3.eps\tAB\t03-02-2026\n", "\t4\t3\t2\t2\t1\t0.57\n",
                           "Source\t2\t0\t0\t100.00\tn/a (one code only)\t\t\t1.00\n",
                           "Uptake\t0\t0\t2\tn/a (no pairs)\tn/a (no pairs)\t\t\tn/a (no pairs)\n",
                           "Seconds of both\t30\n"}) {
    EXPECT_TRUE(text.find(line) != std::string::npos) << line << text;
  }
  EXPECT_EQ(text.find("-0.00"), std::string::npos);

  const std::string paper = PaperLine(comparison.Result());
  EXPECT_TRUE(
      paper.starts_with("AB and MN observed class 5-12 on 03-02-2026; of 4 and 3 questions, "
                        "2 were recorded by both (matched automatically"))
      << paper;
  EXPECT_TRUE(paper.find("Source: 100.00 % equal, kappa n/a (one code only), AC1 1.00, n = 2;") !=
              std::string::npos)
      << paper;
  comparison.Unpair(0);
  EXPECT_TRUE(PaperLine(comparison.Result()).find("by hand") != std::string::npos);
}

TEST(AgreementText, SumsAStudyUp) {
  EXPECT_EQ(PaperLine(AgreementStudy()), "No two observations of one class were compared.");
  std::vector<StudyPair> pairs(2);
  for (StudyPair& pair : pairs) pair.agreement = Compared().Result();
  pairs[1].agreement.first.date = "11-30-2025";
  const std::string paper = PaperLine(StudyOf(std::move(pairs)));
  EXPECT_TRUE(
      paper.starts_with("2 pairs of observations by AB and MN, from 11-30-2025 to "
                        "03-02-2026; of 8 and 6 questions, 4 were recorded by both"))
      << paper;
}

}  // namespace
}  // namespace orvex
