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

/// The sums from which kappa follows. In whole counts they are exact, so that what is nothing comes
/// out as 0 and not as a rounding.
struct Sums {
  double total = 0;
  double agreed = 0;
  double expected = 0;  ///< what chance alone would make equal, times the total

  /// What chance leaves, times the total.
  double Rest() const { return total * total - expected; }
};
Sums SumsOf(const CodeTable& table) {
  Sums sums = {static_cast<double>(table.Total()), static_cast<double>(table.Agreed())};
  for (std::size_t code = 0; code < table.Codes(); ++code) {
    sums.expected +=
        static_cast<double>(table.OfFirst(code)) * static_cast<double>(table.OfSecond(code));
  }
  return sums;
}

}  // namespace

CodeTable& CodeTable::operator+=(const CodeTable& other) {
  std::ranges::transform(counts_, other.counts_, counts_.begin(), std::plus());
  return *this;
}

CodeTable CodeTable::Transposed() const {
  CodeTable transposed(codes_);
  for (std::size_t first = 0; first < codes_; ++first) {
    for (std::size_t second = 0; second < codes_; ++second) {
      transposed.Add(second, first, At(first, second));
    }
  }
  return transposed;
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

std::string_view NameOf(Undefined reason) {
  static constexpr std::array<std::string_view, 2> kNames = {"no pairs", "one code only"};
  return kNames[static_cast<std::size_t>(reason)];
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
  const Sums sums = SumsOf(table);
  return (sums.total * sums.agreed - sums.expected) / sums.Rest();
}

std::optional<Interval> KappaInterval(const CodeTable& table) {
  const auto kappa = Kappa(table);
  if (!kappa) return std::nullopt;
  const Sums sums = SumsOf(table);
  const double rest = sums.Rest();
  const double differing = sums.total - sums.agreed;
  // What a thing in each cell adds to kappa. The variance is taken from the mean of these, for as a
  // difference of two squares it would be all rounding where kappa is 1.
  const double mean = (sums.agreed * rest - 2 * sums.expected * differing) / sums.total;
  double spread = 0;
  for (std::size_t first = 0; first < table.Codes(); ++first) {
    for (std::size_t second = 0; second < table.Codes(); ++second) {
      const auto chance = static_cast<double>(table.OfSecond(first) + table.OfFirst(second));
      const double added = (first == second ? rest : 0) - chance * differing;
      spread += static_cast<double>(table.At(first, second)) * std::pow(added - mean, 2);
    }
  }
  const double error = std::sqrt(spread) * sums.total / std::pow(rest, 2);
  constexpr double kNormalQuantile = 1.959964;
  return Interval{*kappa - kNormalQuantile * error, *kappa + kNormalQuantile * error};
}

std::optional<double> KappaLow(const CodeTable& table) {
  const auto interval = KappaInterval(table);
  return interval ? std::optional(interval->low) : std::nullopt;
}

std::optional<double> KappaHigh(const CodeTable& table) {
  const auto interval = KappaInterval(table);
  return interval ? std::optional(interval->high) : std::nullopt;
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
