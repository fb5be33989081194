#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace orvex {

/// How often two observers gave the same things which code: the first's codes are the rows, the
/// second's the columns, both counted from 0.
class CodeTable {
 public:
  explicit CodeTable(std::size_t codes) : codes_(codes), counts_(codes * codes) {}
  bool operator==(const CodeTable&) const = default;

  std::size_t Codes() const { return codes_; }
  std::int64_t At(std::size_t first, std::size_t second) const {
    return counts_[first * codes_ + second];
  }
  void Add(std::size_t first, std::size_t second, std::int64_t count = 1) {
    counts_[first * codes_ + second] += count;
  }
  /// Adds the counts of `other`, which has as many codes.
  CodeTable& operator+=(const CodeTable& other);
  /// The table with the second observer as the first.
  CodeTable Transposed() const;

  std::int64_t Total() const;
  /// How many things both gave the same code.
  std::int64_t Agreed() const;
  /// How many things the first, or the second, gave `code`.
  std::int64_t OfFirst(std::size_t code) const;
  std::int64_t OfSecond(std::size_t code) const;

 private:
  std::size_t codes_;
  std::vector<std::int64_t> counts_;  ///< row by row
};

/// Why a figure of a table is not defined.
enum class Undefined { noPairs, oneCode };
/// "one code only", "no pairs".
std::string_view NameOf(Undefined reason);
/// Why kappa is not defined for `table`; nothing when it is.
std::optional<Undefined> KappaUndefined(const CodeTable& table);

/// The share of equal codes in percent; nothing for an empty table.
std::optional<double> PercentAgreed(const CodeTable& table);
/// Cohen's kappa; nothing when chance alone would make all codes equal.
std::optional<double> Kappa(const CodeTable& table);

/// The bounds of a 95 % confidence interval, not cut to what the figure can reach.
struct Interval {
  double low = 0;
  double high = 0;
};
/// The interval of kappa, by its large-sample standard error (Fleiss, Cohen and Everitt, 1969).
std::optional<Interval> KappaInterval(const CodeTable& table);
/// Its bounds, as far as there is an interval.
std::optional<double> KappaLow(const CodeTable& table);
std::optional<double> KappaHigh(const CodeTable& table);
/// Gwet's AC1 (2008), which keeps its sense where one code is rare; nothing for an empty table.
std::optional<double> Ac1(const CodeTable& table);
/// Cohen's kappa with quadratic weights: codes count as the less equal, the farther they are apart.
std::optional<double> WeightedKappa(const CodeTable& table);

}  // namespace orvex
