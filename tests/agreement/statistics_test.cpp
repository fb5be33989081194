#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "agreement/code_table.h"
#include "agreement/icc.h"

namespace orvex {
namespace {

using Rows = std::vector<std::vector<std::int64_t>>;

CodeTable TableOf(const Rows& rows) {
  CodeTable table(rows.size());
  for (std::size_t first = 0; first < rows.size(); ++first) {
    for (std::size_t second = 0; second < rows.size(); ++second) {
      table.Add(first, second, rows[first][second]);
    }
  }
  return table;
}

TEST(Statistics, EqualThoseOfOtherPrograms) {
  // Kappa, its interval and the weighted kappa: statsmodels 0.13.5, cohens_kappa(), whose interval
  // has more digits of the normal quantile. AC1: R 4.2, by the formula.
  constexpr double kMuch = 1e-12;
  constexpr double kInterval = 1e-8;
  const struct {
    Rows rows;
    double kappa, low, high, weighted, ac1;
  } cases[] = {
      // Cohen (1960), with 200 things.
      {{{88, 14, 18}, {10, 40, 10}, {2, 6, 12}},
       0.49152542372881347,
       0.3915637020535469,
       0.59148714540408,
       0.4545454545454546,
       0.5759717314487632},
      // Fleiss (1981): psychosis, neurosis, organic.
      {{{75, 1, 4}, {5, 4, 1}, {0, 0, 10}},
       0.676470588235294,
       0.5045759580860855,
       0.8483652183845026,
       0.7553191489361702,
       0.8675696012039129},
      // One code is rare: kappa is below 0 though 94 % are equal.
      {{{118, 5}, {2, 0}},
       -0.02339181286549608,
       -0.04747341343107997,
       0.0006897877000878114,
       -0.02339181286549608,
       0.9407763376087177},
      {{{5, 8, 1, 2}, {3, 8, 2, 0}, {1, 2, 9, 3}, {0, 1, 4, 6}},
       0.34667839859216887,
       0.17383677898535155,
       0.5195200181989862,
       0.5732617129215161,
       0.3471092547812705},
  };
  for (const auto& expected : cases) {
    const CodeTable table = TableOf(expected.rows);
    SCOPED_TRACE(expected.kappa);
    EXPECT_NEAR(Kappa(table).value(), expected.kappa, kMuch);
    EXPECT_NEAR(KappaInterval(table).value().low, expected.low, kInterval);
    EXPECT_NEAR(KappaInterval(table).value().high, expected.high, kInterval);
    EXPECT_NEAR(WeightedKappa(table).value(), expected.weighted, kMuch);
    EXPECT_NEAR(Ac1(table).value(), expected.ac1, kMuch);
  }
}

TEST(Statistics, AreNotDefinedWhereThereIsNothingToCompare) {
  const struct {
    Rows rows;
    std::optional<Undefined> reason;
    std::optional<double> kappa, percent, ac1;
  } cases[] = {
      {{{0, 0}, {0, 0}}, Undefined::noPairs, {}, {}, {}},
      {{{7, 0}, {0, 0}}, Undefined::oneCode, {}, 100, 1},
      // Each of the two has one code only, but not the same.
      {{{0, 7}, {0, 0}}, {}, 0, 0, -1},
      {{{1, 0}, {0, 1}}, {}, 1, 100, 1},
      // Rounded shares of such a table do not add up to 1.
      {{{0, 0, 0}, {0, 49, 0}, {0, 0, 0}}, Undefined::oneCode, {}, 100, 1},
  };
  for (const auto& [rows, reason, kappa, percent, ac1] : cases) {
    const CodeTable table = TableOf(rows);
    EXPECT_EQ(KappaUndefined(table), reason);
    EXPECT_EQ(Kappa(table), kappa);
    EXPECT_EQ(WeightedKappa(table), kappa);
    EXPECT_EQ(KappaInterval(table).has_value(), kappa.has_value());
    EXPECT_EQ(PercentAgreed(table), percent);
    EXPECT_EQ(Ac1(table), ac1);
  }
}

TEST(Icc, EqualsThePublishedExample) {
  // Shrout and Fleiss (1979, Psychological Bulletin 86, 420-428) print .29; more digits by R 4.2,
  // from the mean squares of aov().
  const auto published =
      IccA1({{9, 2, 5, 8}, {6, 1, 3, 2}, {8, 4, 6, 8}, {7, 1, 2, 6}, {10, 5, 6, 9}, {6, 2, 4, 7}});
  EXPECT_NEAR(published.value(), 0.2897637795275591, 1e-12);
}

TEST(Icc, NeedsSomeVariance) {
  const struct {
    std::vector<std::vector<double>> ratings;
    std::optional<double> icc;
  } cases[] = {
      {{}, {}},
      {{{1, 1}}, {}},
      {{{0.5, 0.5}, {0.5, 0.5}, {0.5, 0.5}}, {}},
      {{{1, 1}, {2, 2}, {5, 5}}, 1},
      {{{1, 3}, {1, 3}, {1, 3}}, 0},  // the observers differ, the classes do not
  };
  for (const auto& [ratings, icc] : cases) EXPECT_EQ(IccA1(ratings), icc);
}

}  // namespace
}  // namespace orvex
