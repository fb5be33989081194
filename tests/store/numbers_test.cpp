#include "store/numbers.h"

#include <gtest/gtest.h>

#include <tuple>

namespace orvex {
namespace {

TEST(Numbers, SinglesPrintUpToSevenDigits) {
  constexpr std::pair<float, const char*> kCases[] = {
      {-0.0F, " 0 "},           {-0.5F, "-.5 "},           {0.1F, " .1 "},
      {2.0F / 3, " .6666667 "}, {8388608.5F, " 8388608 "}, {1e-10F, " .0000000001 "},
      {100, " 100 "},           {16777216, " 16777220 "},
  };
  for (const auto& [value, text] : kCases) EXPECT_EQ(PrintItem(value), text);
}

TEST(Numbers, PatternsRoundHalvesAwayFromZero) {
  const std::tuple<double, const char*, const char*> cases[] = {
      {-0.125, "0.##", "-0.13"},
      {1.005, "0.##", "1.01"},
      {-0.004, "0.##", "0."},
      {19.95, "#0.#", "20."},
      {0.0005, "0.000", "0.001"},
      {7, "00", "07"},
      {0, "0.#######E-###", "0.E0"},
      {1250, "0.#######E-###", "1.25E3"},
      {9.99999999e-12, "0.#######E-###", "1.E-11"},
  };
  for (const auto& [value, pattern, text] : cases) {
    EXPECT_EQ(FormatPattern(value, pattern), text) << value << " as " << pattern;
  }
  EXPECT_EQ(FormatPattern(1.0F / 30, "0.#######E-###"), "3.333334E-2");
}

TEST(Numbers, FilesAndPeopleWriteThemDifferently) {
  using Read = std::optional<double>;
  const std::tuple<const char*, Read, Read> cases[] = {
      {"+.5", .5, .5}, {"-3.", -3, -3}, {"1.5E-02", .015, {}}, {"1e-999", 0, {}}, {"1e999", {}, {}},
      {" 7 ", {}, 7},  {"", {}, {}},    {".", {}, {}},         {"1e", {}, {}},    {"1,5", {}, {}},
      {"+-1", {}, {}}, {"0x1", {}, {}}, {"nan", {}, {}},
  };
  for (const auto& [text, inFile, typed] : cases) {
    EXPECT_EQ(ParseNumber(text), inFile) << text;
    EXPECT_EQ(TypedNumber(text), typed) << text;
  }
}

TEST(Numbers, WholeNumbersHaveTheirRange) {
  using Read = std::optional<int>;
  const std::tuple<const char*, Read, Read> cases[] = {
      {"007", 7, 7},  {"12.5", 12, 12}, {"13.5", 14, 14}, {"32767", 32767, 32767}, {"0", 0, {}},
      {"0.6", 1, {}}, {"-0.4", {}, {}}, {"4e1", {}, {}},  {"32767.4", {}, {}},     {"five", {}, {}},
  };
  for (const auto& [text, identity, students] : cases) {
    EXPECT_EQ(IdentityNumber(text), identity) << text;
    EXPECT_EQ(StudentCount(text), students) << text;
  }
}

}  // namespace
}  // namespace orvex
