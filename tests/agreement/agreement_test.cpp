#include "agreement/agreement.h"

#include <gtest/gtest.h>

#include <chrono>

#include "agreement/agreement_study.h"
#include "agreement/comparison.h"
#include "study/observation_day.h"
#include "support/sample_pairs.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

QuestionPairs Swapped(QuestionPairs pairs) {
  for (QuestionPair& pair : pairs) std::swap(pair.first, pair.second);
  return pairs;
}

QuestionPairs PairsOfBoth(QuestionPairs pairs) {
  std::erase_if(pairs, [](const QuestionPair& pair) { return !pair.IsOfBoth(); });
  return pairs;
}

/// Holds `back`, the agreement of the second with the first, against `there`.
void ExpectSwapped(const Agreement& back, const Agreement& there) {
  EXPECT_EQ(back.offset.seconds, -there.offset.seconds);
  EXPECT_EQ(back.offset.from, there.offset.from);
  EXPECT_EQ(back.overlap, there.overlap);
  EXPECT_EQ(back.activities.table, there.activities.table.Transposed());
  EXPECT_EQ(back.activities.tolerantFirst, there.activities.tolerantSecond);
  EXPECT_EQ(back.activities.tolerantSecond, there.activities.tolerantFirst);
  EXPECT_EQ(back.boundaries.first, there.boundaries.second);
  EXPECT_EQ(back.boundaries.second, there.boundaries.first);
  EXPECT_EQ(back.boundaries.both, there.boundaries.both);
  EXPECT_EQ(back.firstQuestions, there.secondQuestions);
  EXPECT_EQ(PairsOfBoth(back.pairs), PairsOfBoth(Swapped(there.pairs)));
  for (std::size_t i = 0; i < there.codes.size(); ++i) {
    EXPECT_EQ(back.codes[i].table, there.codes[i].table.Transposed());
    EXPECT_EQ(back.codes[i].leftOut, there.codes[i].leftOut);
    EXPECT_EQ(back.codes[i].neither, there.codes[i].neither);
  }
  EXPECT_EQ(back.respondent.both, there.respondent.both);
  EXPECT_EQ(back.respondent.same, there.respondent.same);
  EXPECT_EQ(back.firstOfftask, there.secondOfftask);
  ASSERT_EQ(back.survey.has_value(), there.survey.has_value());
  if (!there.survey) return;
  EXPECT_EQ(back.survey->ratings, there.survey->ratings.Transposed());
  EXPECT_EQ(back.survey->leftOut, there.survey->leftOut);
  EXPECT_EQ(back.survey->items, there.survey->items.Transposed());
}

TEST(Agreement, IsTheSameFromEitherSide) {
  for (const test::SamplePair& sample : test::SamplePairs()) {
    SCOPED_TRACE(sample.name);
    const ObservedClass first = ReadObservedClass(sample.first);
    const ObservedClass second = ReadObservedClass(sample.second);
    const Agreement there = Compare(first, second, QuestionsOf(first, second), {});
    const AskedQuestions swapped = QuestionsOf(second, first);
    ExpectSwapped(Compare(second, first, swapped, {}), there);
    ExpectSwapped(Compare(second, first, swapped, {}, Swapped(there.pairs)), there);
  }
}

TEST(Agreement, OfAClassWithItselfIsWholeOrNotDefined) {
  const auto expectWhole = [](const CodeTable& table) {
    EXPECT_EQ(table.Agreed(), table.Total());
    EXPECT_EQ(Kappa(table).value_or(1), 1);
  };
  for (const test::SamplePair& sample : test::SamplePairs()) {
    SCOPED_TRACE(sample.name);
    const ObservedClass observed = ReadObservedClass(sample.first);
    const Agreement agreement = Compare(observed, observed, QuestionsOf(observed, observed), {});
    EXPECT_EQ(agreement.boundaries.Share().value_or(1), 1);
    EXPECT_EQ(agreement.QuestionShare().value_or(1), 1);
    expectWhole(agreement.activities.table);
    expectWhole(agreement.activities.tolerantFirst);
    for (const CodeAgreement& code : agreement.codes) {
      expectWhole(code.table);
      EXPECT_EQ(code.leftOut, 0);
    }
    EXPECT_EQ(agreement.respondent.same, agreement.respondent.both);
    if (!agreement.survey) continue;
    expectWhole(agreement.survey->ratings);
    EXPECT_EQ(agreement.survey->ratings.Agreed(), agreement.survey->WithinOne());
  }
}

TEST(Agreement, TakesTheOffsetFromTheLogsUnlessItIsStated) {
  using Day = std::optional<std::chrono::sys_days>;
  const auto began = [](std::optional<int> second, Day day) {
    return ObservedClass{.logStart = second, .logDay = day};
  };
  const Day one = DayOf("08-31-2001");
  const Day next = DayOf("9-1-2001");
  const struct {
    std::optional<int> first, second, given;
    Day firstDay, secondDay;
    int seconds;
    Offset::From from;
  } cases[] = {
      {36000, 36012, {}, one, one, 12, Offset::From::log},
      {36012, 36000, {}, one, {}, -12, Offset::From::log},
      {86390, 5, {}, one, next, 15, Offset::From::log},  // midnight between them
      {5, 86390, {}, next, one, -15, Offset::From::log},
      {86390, 5, {}, one, one, 15, Offset::From::log},  // the class's day, in both
      {86390, 5, {}, next, one, 0, Offset::From::start},
      {36000, 36012, {}, one, next, 0, Offset::From::start},
      {36000, 36012, 0, one, next, 0, Offset::From::given},
      {36000, {}, {}, one, {}, 0, Offset::From::start},
      {{}, {}, -7, {}, {}, -7, Offset::From::given},
  };
  for (const auto& [first, second, given, firstDay, secondDay, seconds, from] : cases) {
    const Offset offset = OffsetOf(began(first, firstDay), began(second, secondDay), given);
    EXPECT_EQ(offset.seconds, seconds);
    EXPECT_EQ(offset.from, from);
  }
}

/// A class in a test's folder: a sample with other identity and date.
fs::path PutClass(const test::TestFolder& folder, const std::string& classId,
                  const std::string& initials = "LR", const std::string& date = "08-22-2001") {
  std::string bytes = test::FileBytes(test::TestData("pairs/EPS/35/6/35-6-1.eps"));
  const auto change = [&](const std::string& from, const std::string& to) {
    bytes.replace(bytes.find(from), from.size(), to);
  };
  std::string numbers = classId;
  std::ranges::replace(numbers, '-', ',');
  change("35,6,1", numbers);
  change("LR", initials);
  change("08-22-2001", date);
  test::PutFile(folder / (classId + ".eps"), bytes);
  return folder / (classId + ".eps");
}

TEST(Agreement, SaysWhatIsUnusual) {
  const test::TestFolder folder;
  const fs::path usual = PutClass(folder, "35-6-1");
  test::PutFile(folder / "35-6-3.sur", "no survey");
  test::PutFile(folder / "35-6-4.bak", "");
  fs::create_directory(folder / "35-6-7.bak");
  fs::create_symlink(folder / "35-6-8.bak", folder / "35-6-8.bak");
  test::PutFile(folder / "35-6-5.eps", test::FileBytes(test::TestData("odd/10-22-1.eps")));
  const struct {
    fs::path second;
    std::vector<std::string> remarks;
    int offset = 0;
  } cases[] = {
      {PutClass(folder, "35-6-2"), {}},
      {PutClass(folder, "35-6-3"), {"35-6-3.eps: the survey: "}},
      {PutClass(folder, "35-6-4"), {"35-6-4.eps: the session log could not be read"}},
      {PutClass(folder, "35-6-7"), {"35-6-7.eps: the session log could not be read"}},
      {PutClass(folder, "35-6-8", "MN", "8-22-2001"),
       {"35-6-8.eps: the session log could not be read"}},
      {PutClass(folder, "36-6-1"),
       {"The two observations are of different classes: 35-6 and 36-6."}},
      {PutClass(folder, "35-6-6", "MN", "08-23-2001"),
       {"The two observations are of different days: 08-22-2001 and 08-23-2001."}},
      {folder / "35-6-2.eps", {"The two observations have no time in common."}, 40000},
      {folder / "35-6-5.eps",
       {"The two observations are of different classes: 35-6 and 10-22.",
        "The two observations are of different days: 08-22-2001 and 03-18-2001.",
        "35-6-5.eps: the identity line says 10-22-1"}},
  };
  for (const auto& [second, remarks, offset] : cases) {
    SCOPED_TRACE(second);
    const Comparison comparison(ReadObservedClass(usual), ReadObservedClass(second),
                                {.offset = offset});
    const std::vector<std::string> told = comparison.Result().AllRemarks();
    ASSERT_EQ(told.size(), remarks.size());
    for (std::size_t i = 0; i < remarks.size(); ++i) {
      EXPECT_TRUE(told[i].starts_with(remarks[i])) << told[i];
    }
  }
}

TEST(AgreementStudy, ComparesEveryTwoObserversOfAClass) {
  const test::TestFolder folder;
  test::PutFile(folder / "1-1-1.eps", "broken");
  test::PutFile(folder / "copy" / "5-12-1.eps",
                test::FileBytes(PutClass(folder, "5-12-1", " ab ")));
  test::PutFile(folder / "5-12-1.sur", "no survey");
  const std::vector<fs::path> files = {PutClass(folder, "5-12-10", "CD", "8-22-2001"),
                                       folder / "5-12-1.eps",
                                       PutClass(folder, "5-12-2", "MN"),
                                       folder / "copy" / "5-12-1.eps",
                                       folder / "copy" / ".." / "5-12-1.eps",
                                       folder / "1-1-1.eps",
                                       PutClass(folder, "5-12-3", "MN", "08-23-2001"),
                                       folder / "gone.eps",
                                       PutClass(folder, "5-13-1", "AB"),
                                       PutClass(folder, "5-14-1", "AB"),
                                       PutClass(folder, "5-14-2", "")};
  std::vector<std::string> told;
  const AgreementStudy study = CompareAll(files, {}, {}, [&](const StudyProgress& now) {
    told.push_back((now.step == StudyProgress::Step::finding ? "files " : "pairs ") +
                   std::to_string(now.done) + "/" + std::to_string(now.of));
  });
  std::vector<std::string> pairs;
  for (const StudyPair& pair : study.pairs) {
    pairs.push_back(pair.agreement.first.file + " " + pair.agreement.second.file);
  }
  EXPECT_EQ(pairs, (std::vector<std::string>{"5-12-1.eps 5-12-2.eps", "5-12-1.eps 5-12-10.eps",
                                             "5-12-2.eps 5-12-10.eps", "5-14-1.eps 5-14-2.eps"}));
  ASSERT_EQ(told.size(), 10U + 2U);
  EXPECT_EQ(told.front(), "files 1/10") << "one file is named twice";
  EXPECT_EQ(told[10], "pairs 3/4");
  EXPECT_EQ(study.observers.at("ab").name, "ab");
  EXPECT_EQ(study.observers.at("ab").pooled.pairs, 3U);
  EXPECT_EQ(study.observers.at("").name, "(no initials)");
  EXPECT_EQ(study.icc[0].pairs, 4U);
  EXPECT_EQ(study.icc[0].undefined, "no variance") << "always the same class";
  ASSERT_EQ(study.unread.size(), 3U);
  EXPECT_EQ(study.unread[0].file, folder / "1-1-1.eps");
  EXPECT_EQ(study.unread[0].line, 1);
  EXPECT_EQ(study.unread[1].file, folder / "gone.eps");
  EXPECT_EQ(study.unread[2].file, folder / "5-12-1.sur") << "once, for two pairs";
  EXPECT_EQ(study.remarks.size(), 3U) << "a copy, and two observations that are alone";
  EXPECT_TRUE(CompareAll(files, {}, [] { return true; }).pairs.empty()) << "stopped";
}

}  // namespace
}  // namespace orvex
