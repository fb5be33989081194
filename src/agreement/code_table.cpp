#include "agreement/code_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numeric>

namespace orvex {
namespace {

/// The share of `part` in `whole`, which is not 0.
double Share(std::int64_t part, std::int64_t whole) {
  return static_cast<double>(part) / static_cast<double>(whole);
}

/// The shares of equal codes: those that there are, and those that chance alone would make.
struct Shares {
  double observed = 0;
  double expected = 0;
};
Shares SharesOf(const CodeTable& table) {
  const std::int64_t total = table.Total();
  Shares shares = {.observed = Share(table.Agreed(), total)};
  for (std::size_t code = 0; code < table.Codes(); ++code)
    shares.expected += Share(table.OfFirst(code), total) * Share(table.OfSecond(code), total);
  return shares;
}

}  // namespace

CodeTable& CodeTable::operator+=(const CodeTable& other) {
  std::ranges::transform(counts_, other.counts_, counts_.begin(), std::plus());
  return *this;
}

std::int64_t CodeTable::Total() const {
  return std::accumulate(counts_.begin(), counts_.end(), std::int64_t{0});
}

std::int64_t CodeTable::Agreed() const {
  std::int64_t agreed = 0;
  for (std::size_t code = 0; code < codes_; ++code) agreed += At(code, code);
  return agreed;
}

std::int64_t CodeTable::OfFirst(std::size_t code) const {
  std::int64_t count = 0;
  for (std::size_t second = 0; second < codes_; ++second) count += At(code, second);
  return count;
}

std::int64_t CodeTable::OfSecond(std::size_t code) const {
  std::int64_t count = 0;
  for (std::size_t first = 0; first < codes_; ++first) count += At(first, code);
  return count;
}

std::string_view TextOf(Undefined reason) {
  static constexpr std::array<std::string_view, 2> kTexts = {"n/a (no pairs)",
                                                             "n/a (one code only)"};
  return kTexts[static_cast<std::size_t>(reason)];
}

std::optional<Undefined> KappaUndefined(const CodeTable& table) {
  const std::int64_t total = table.Total();
  if (total == 0) return Undefined::noPairs;
  // Chance makes all codes equal only where both gave one and the same code to everything. Counted,
  // because rounding could hide it in the shares.
  for (std::size_t code = 0; code < table.Codes(); ++code) {
    if (table.At(code, code) == total) return Undefined::oneCode;
  }
  return std::nullopt;
}

std::optional<double> PercentAgreed(const CodeTable& table) {
  const std::int64_t total = table.Total();
  if (total == 0) return std::nullopt;
  return 100.0 * Share(table.Agreed(), total);
}

std::optional<double> Kappa(const CodeTable& table) {
  if (KappaUndefined(table)) return std::nullopt;
  const auto [observed, expected] = SharesOf(table);
  return (observed - expected) / (1 - expected);
}

std::optional<Interval> KappaInterval(const CodeTable& table) {
  const auto kappa = Kappa(table);
  if (!kappa) return std::nullopt;
  const std::int64_t total = table.Total();
  const auto [observed, expected] = SharesOf(table);
  const double rest = 1 - expected;
  // What a thing in each cell adds to kappa. The variance is taken from the mean of these, for as a
  // difference of two squares it would be all rounding where kappa is 1.
  const double mean = observed * rest - 2 * expected * (1 - observed);
  double spread = 0;
  for (std::size_t first = 0; first < table.Codes(); ++first) {
    for (std::size_t second = 0; second < table.Codes(); ++second) {
      const double chance =
          Share(table.OfSecond(first), total) + Share(table.OfFirst(second), total);
      const double added = (first == second ? rest : 0) - chance * (1 - observed);
      spread += Share(table.At(first, second), total) * std::pow(added - mean, 2);
    }
  }
  const double error = std::sqrt(spread / static_cast<double>(total)) / std::pow(rest, 2);
  constexpr double kNormalQuantile = 1.959964;
  return Interval{*kappa - kNormalQuantile * error, *kappa + kNormalQuantile * error};
}

std::optional<double> Ac1(const CodeTable& table) {
  const std::int64_t total = table.Total();
  if (total == 0) return std::nullopt;
  double expected = 0;
  for (std::size_t code = 0; code < table.Codes(); ++code) {
    const double mean = Share(table.OfFirst(code) + table.OfSecond(code), 2 * total);
    expected += mean * (1 - mean) / static_cast<double>(table.Codes() - 1);
  }
  return (Share(table.Agreed(), total) - expected) / (1 - expected);
}

std::optional<double> WeightedKappa(const CodeTable& table) {
  if (KappaUndefined(table)) return std::nullopt;
  const std::int64_t total = table.Total();
  // Both in terms of how far apart the codes are; the common factor of the weights cancels out.
  double observed = 0;
  double expected = 0;
  for (std::size_t first = 0; first < table.Codes(); ++first) {
    for (std::size_t second = 0; second < table.Codes(); ++second) {
      const double apart = std::pow(static_cast<double>(first) - static_cast<double>(second), 2);
      observed += apart * Share(table.At(first, second), total);
      expected += apart * Share(table.OfFirst(first), total) * Share(table.OfSecond(second), total);
    }
  }
  return 1 - observed / expected;
}

}  // namespace orvex
