// A study's agreement as tables, and its observers as time goes on.

#include "agreement/study_tables.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "agreement/compared_study.h"
#include "agreement/observers.h"
#include "study/study_folder.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

using namespace test;
using Positions = std::vector<std::size_t>;

/// A pair of which a number of questions got the same source, and a number another one.
StudyPair Pair(const char* first, const char* second, const char* date, int same, int other) {
  Agreement agreement;
  for (const ComparedDimension& compared : ComparedDimensions()) {
    agreement.codes.push_back({&compared, CodeTable(compared.letters.size())});
  }
  CodeTable& source = agreement.codes.front().table;
  source.Add(0, 0, same);
  source.Add(1, 1, same);
  source.Add(0, 1, other);
  agreement.first = {"5-12-3.eps", Numbers("5-12-3", first), date};
  agreement.second = {"5-12-4.eps", Numbers("5-12-4", second), date};
  return {"5-12-3.eps", "5-12-4.eps", std::move(agreement)};
}

/// AB agrees less and less, and KL only once.
AgreementStudy Drifting() {
  return StudyOf({Pair("AB", "MN", "05-02-2026", 2, 6), Pair("AB", "MN", "12-01-2025", 10, 0),
                  Pair("MN", "ab ", "03-02-2026", 5, 3), Pair("KL", "MN", "no date", 5, 0),
                  Pair("KL", "KL", "03-02-2026", 0, 0)});
}

TEST(Observers, ComeWithWhoAgreesLeastFirstAndSayHowTheyChange) {
  const AgreementStudy study = Drifting();
  const auto observers = ObserversOf(study);
  ASSERT_EQ(observers.size(), 3U);
  EXPECT_EQ(observers[0].key, "ab");
  EXPECT_EQ(observers[1].key, "mn");
  EXPECT_EQ(observers[2].key, "kl");
  // Of three days the middle one is in the later half: 10 + 10 equal before, 7 + 7 of 23 after.
  ASSERT_TRUE(observers[0].Change());
  EXPECT_DOUBLE_EQ(*observers[0].earlier, 1);
  EXPECT_DOUBLE_EQ(*observers[0].later, *Kappa([] {
    CodeTable table(2);
    table.Add(0, 0, 7);
    table.Add(1, 1, 7);
    table.Add(0, 1, 9);
    return table;
  }()));
  EXPECT_FALSE(observers[2].Change()) << "a single day has no halves";
}

TEST(Observers, GoTheirCourseByTheDay) {
  const AgreementStudy study = Drifting();
  const auto courses = CoursesOf(study, 0);
  ASSERT_EQ(courses.size(), 3U);
  EXPECT_EQ(courses[0].observer, "AB");
  Positions pairs;
  for (const KappaOfDay& point : courses[0].points) pairs.push_back(point.pair);
  EXPECT_EQ(pairs, (Positions{1, 2, 0}));
  EXPECT_EQ(courses[1].observer, "KL");
  EXPECT_EQ(courses[1].points.size(), 0U);
  EXPECT_EQ(courses[1].undefined, 1U) << "one pair without questions";
  EXPECT_EQ(courses[1].undated, 1U);
  EXPECT_EQ(CoursesOf(study, std::nullopt)[2].undefined, 4U) << "nobody saw activities";
}

TEST(StudyTables, SortByWhatTheyShowAndCopyIt) {
  FigureGrid pairs = PairsTable(Drifting());
  const auto order = [&pairs](std::size_t column, bool descending) {
    pairs.SortBy(column, descending);
    std::string keys;
    for (const FigureGrid::Row& row : pairs.rows) keys += row.key;
    return keys;
  };
  constexpr std::size_t kDate = 1;
  constexpr std::size_t kSource = 8;
  EXPECT_EQ(pairs.columns[kSource].heading, "Source");
  EXPECT_EQ(order(kDate, false), "12403") << "what is no date comes last";
  EXPECT_EQ(order(kDate, true), "02413");
  EXPECT_EQ(order(kSource, false), "02134");
  EXPECT_EQ(order(kSource, true), "13204") << "and so does what is not defined";
  const std::string text = pairs.TextOf({0});
  EXPECT_TRUE(text.starts_with("Class\tDate\tFirst\tSecond\t")) << text;
  EXPECT_NE(text.find("\n5-12\t12-01-2025\tAB 3\tMN 4\tnot known\t0\t"), std::string::npos) << text;
  EXPECT_NE(text.find("\t1.00\tn/a (no pairs)\t"), std::string::npos) << text;
}

TEST(ComparedStudy, ComparesInTheBackgroundAndKeepsItsOrder) {
  const TestFolder folder;
  std::vector<std::filesystem::path> files;
  const auto put = [&](const std::string& name, const std::string& initials, const char* date) {
    const EpisodeList episodes = {Lesson(600, {Asked("Why does she keep it to herself?", "T", "Y"),
                                               Asked("May I read it again?", "S", "N")})};
    PutFile(folder / (name + ".eps"), EpsBytes(Numbers(name, initials), episodes, date));
    files.push_back(folder / (name + ".eps"));
  };
  put("5-12-3", "AB", "03-02-2026");
  put("5-12-4", "MN", "03-02-2026");
  put("5-13-1", "AB", "03-03-2026");
  put("5-13-2", "KL", "03-03-2026");
  put("6-1-1", "AB", "03-02-2026");
  PutFile(folder / "7-1-1.eps", "not an episode file");
  files.push_back(folder / "7-1-1.eps");
  ComparedStudy study(files);
  const auto await = [&study] {
    while (!study.Tick()) std::this_thread::yield();
  };
  study.SortBy(StudyFigures::pairs, 0, true);
  await();
  EXPECT_FALSE(study.IsReading());
  EXPECT_EQ(study.ProgressText(), "");
  EXPECT_EQ(study.TotalsText(),
            "2 pairs of 6 observations, 4 questions of both observers, 2 left out");
  EXPECT_EQ(study.PairOf(0).first.filename(), "5-13-1.eps");
  for (const char* left : {"7-1-1.eps", "6-1-1.eps"}) {
    EXPECT_NE(study.LeftOutText().find(left), std::string::npos) << study.LeftOutText();
  }
  study.SetTolerance(9);
  EXPECT_TRUE(study.IsReading());
  EXPECT_EQ(study.Result().pairs.size(), 2U) << "the figures stay until there are others";
  await();
  EXPECT_EQ(study.Result().pooled.activities.tolerance, 9);
  EXPECT_EQ(study.PairOf(0).first.filename(), "5-13-1.eps");

  study.Reload();
  study.Stop();
  await();
  EXPECT_NE(study.ProgressText().find("topped"), std::string::npos) << study.ProgressText();
}

}  // namespace
}  // namespace orvex
