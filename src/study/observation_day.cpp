#include "study/observation_day.h"

#include <charconv>
#include <string_view>

namespace orvex {
namespace {

/// The number that `digits` are; nothing if they are anything else.
std::optional<unsigned> NumberOf(std::string_view digits) {
  unsigned number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [at, error] = std::from_chars(digits.data(), end, number);
  return error == std::errc() && at == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<std::chrono::sys_days> DayOf(std::string_view date) {
  constexpr std::string_view kShape = "mm-dd-yyyy";
  if (date.size() != kShape.size()) return std::nullopt;
  const auto month = NumberOf(date.substr(0, 2));
  const auto day = NumberOf(date.substr(kShape.find('d'), 2));
  const auto year = NumberOf(date.substr(kShape.find('y')));
  if (!month || !day || !year) return std::nullopt;
  const std::chrono::year_month_day found{std::chrono::year(static_cast<int>(*year)),
                                          std::chrono::month(*month), std::chrono::day(*day)};
  return found.ok() ? std::optional<std::chrono::sys_days>(found) : std::nullopt;
}

}  // namespace orvex
