#include "store/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvex {
namespace {

TEST(Numbers, SinglesPrintUpToSevenDigits) {
  using Limits = std::numeric_limits<float>;
  constexpr std::pair<float, const char*> kCases[] = {
      {0.0F, " 0 "},
      {-0.0F, " 0 "},
      {0.25F, " .25 "},
      {-0.5F, "-.5 "},
      {1.25F, " 1.25 "},
      {100.0F, " 100 "},
      {0.1F, " .1 "},
      {0.099999994F, " .09999999 "},
      {1.0F / 3, " .3333333 "},
      {2.0F / 3, " .6666667 "},
      {8388608.5F, " 8388608 "},
      {8388609.5F, " 8388610 "},
      {16777216.0F, " 16777220 "},
      {1e-10F, " .0000000001 "},
      {3.4e38F, " 340000000000000000000000000000000000000 "},
      {Limits::infinity(), " 340282300000000000000000000000000000000 "},
      {Limits::quiet_NaN(), " 0 "}};
  for (const auto& [value, text] : kCases) EXPECT_EQ(PrintItem(value), text);
}

TEST(Numbers, PatternsRoundHalvesAwayFromZero) {
  struct Case {
    double value;
    const char* pattern;
    const char* text;
  };
  constexpr Case kDoubles[] = {{0, "0.##", "0."},
                               {2.5, "0.##", "2.5"},
                               {0.125, "0.##", "0.13"},
                               {-0.125, "0.##", "-0.13"},
                               {1.005, "0.##", "1.01"},
                               {-0.004, "0.##", "0."},
                               {0.0004, "0.##", "0."},
                               {9.995, "0.##", "10."},
                               {0.04, "#0.#", "0."},
                               {0.05, "#0.#", "0.1"},
                               {99.95, "#0.#", "100."},
                               {20, "#0.#", "20."},
                               {0.5, "0.000", "0.500"},
                               {0.0005, "0.000", "0.001"},
                               {0.25, "0.#######", "0.25"},
                               {123456.7, "0.#######", "123456.7"},
                               {7, "00", "07"},
                               {125, "00", "125"},
                               {0, "##0", "0"},
                               {0, "0.#######E-###", "0.E0"},
                               {0.2, "0.#######E-###", "2.E-1"},
                               {1250, "0.#######E-###", "1.25E3"},
                               {9.99999999e-12, "0.#######E-###", "1.E-11"}};
  for (const auto& [value, pattern, text] : kDoubles) {
    EXPECT_EQ(FormatPattern(value, pattern), text) << value << " as " << pattern;
  }
  constexpr Case kSingles[] = {
      {0.2, "0.#######", "0.2"},
      {1.0 / 3, "0.#######", "0.3333333"},
      {0.01234567891, "0.#######", "0.0123457"},
      {1.0 / 30, "0.#######E-###", "3.333334E-2"},
      {0.16, "0.#######E-###", "1.6E-1"},
  };
  for (const auto& [value, pattern, text] : kSingles) {
    EXPECT_EQ(FormatPattern(static_cast<float>(value), pattern), text) << value;
  }
}

TEST(Numbers, FilesAndPeopleWriteThemDifferently) {
  struct Case {
    const char* text;
    std::optional<double> inFile;
    std::optional<double> typed;
  };
  const Case cases[] = {
      {"12", 12, 12},       {"+.5", .5, .5},   {"-3.", -3, -3},   {"1.5E-02", .015, {}},
      {"1e+3", 1000, {}},   {"1e-999", 0, {}}, {"1e999", {}, {}}, {" 7 ", {}, 7},
      {"", {}, {}},         {" ", {}, {}},     {".", {}, {}},     {"+-1", {}, {}},
      {"1e", {}, {}},       {"1.2.3", {}, {}}, {"1,5", {}, {}},   {"- 5", {}, {}},
      {"0x10", {}, {}},     {"inf", {}, {}},   {"nan", {}, {}},   {"\t5", {}, {}},
      {"\xD9\xA5", {}, {}},  // an Arabic five
  };
  for (const auto& [text, inFile, typed] : cases) {
    EXPECT_EQ(ParseNumber(text), inFile) << text;
    EXPECT_EQ(TypedNumber(text), typed) << text;
  }
}

TEST(Numbers, TooLargeIsNoneAndTooSmallIsZero) {
  const std::string nines(400, '9');
  const std::string zeros(400, '0');
  const std::pair<std::string, std::optional<double>> cases[] = {
      {nines, std::nullopt},
      {nines + "e-300", 1e100},
      {nines + "e-91", std::nullopt},
      {"." + zeros + "1", 0},
      {"-0." + zeros + "1", 0},
      {"." + zeros + "1e800", std::nullopt},
      {"." + zeros + "1E300", 1e-101},
      {"." + zeros + "1e+40", 0},
      {"1" + zeros + "e-800", 0},
      {"0e99999999999", 0},
      {"-7e99999999999", std::nullopt},
      {"7e-99999999999", 0},
  };
  for (const auto& [text, value] : cases) {
    EXPECT_TRUE(IsNumber(text)) << text;
    const auto read = ParseNumber(text);
    EXPECT_EQ(read.has_value(), value.has_value()) << text;
    EXPECT_DOUBLE_EQ(read.value_or(0), value.value_or(0)) << text;
  }
  for (const char* text : {"", "1e", "e5", ".", "-", "1 2", "infinity"}) {
    EXPECT_FALSE(IsNumber(text)) << text;
  }
}

TEST(Numbers, WholeNumbersHaveTheirRange) {
  struct Case {
    const char* text;
    std::optional<int> identity;
    std::optional<int> students;
  };
  const Case cases[] = {
      {"007", 7, 7},     {" 5", 5, 5},        {"12.5", 12, 12}, {"13.5", 14, 14},
      {"0", 0, {}},      {"0.5", 0, {}},      {"-1", {}, {}},   {"32767", 32767, 32767},
      {"32768", {}, {}}, {"32767.4", {}, {}}, {"4e1", {}, {}},  {"five", {}, {}},
      {"-0.4", {}, {}},  {"0.6", 1, {}},      {"-0", 0, {}},    {"1.5", 2, 2},
  };
  for (const auto& [text, identity, students] : cases) {
    EXPECT_EQ(IdentityNumber(text), identity) << text;
    EXPECT_EQ(StudentCount(text), students) << text;
  }
  EXPECT_EQ(ToInt16(-32768.5), std::int16_t{-32768});
  EXPECT_EQ(ToInt16(-32769), std::nullopt);
  EXPECT_EQ(ToInt16(1e300), std::nullopt);
}

}  // namespace
}  // namespace orvex
