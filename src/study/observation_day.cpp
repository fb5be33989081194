#include "study/observation_day.h"

#include "store/numbers.h"

namespace orvex {

std::optional<std::chrono::sys_days> DayOf(std::string_view date) {
  const auto numbers = ThreeNumbers(date, "-/");
  if (!numbers) return std::nullopt;
  const auto& [month, day, year] = *numbers;
  constexpr int kMostMonths = 12;
  constexpr int kMostDays = 31;
  constexpr int kFirstYear = 1000;  // fewer digits would leave the century open
  constexpr int kLastYear = 9999;
  if (month > kMostMonths || day > kMostDays || year < kFirstYear || year > kLastYear) {
    return std::nullopt;
  }
  const std::chrono::year_month_day found{std::chrono::year(year),
                                          std::chrono::month(static_cast<unsigned>(month)),
                                          std::chrono::day(static_cast<unsigned>(day))};
  return found.ok() ? std::optional<std::chrono::sys_days>(found) : std::nullopt;
}

}  // namespace orvex
