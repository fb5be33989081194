#include "reports/time_axis.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/clock.h"
#include "model/texts.h"
#include "model/wording.h"

namespace orvex {
namespace {

constexpr double kMinute = 60;

/// The seconds between two marks.
double StepFor(double seconds) {
  constexpr double kMostSteps = 12;
  constexpr std::array kMinutes = {1, 2, 5, 10, 15, 20, 30, 60, 120};
  for (const int minutes : kMinutes) {
    if (seconds <= minutes * kMinute * kMostSteps) return minutes * kMinute;
  }
  double step = kMinutes.back() * kMinute;
  while (seconds > step * kMostSteps) step *= 2;
  return step;
}

}  // namespace

std::vector<ClassPicture::AxisMark> TimeAxis(const Stretch& shown, std::optional<int> begin) {
  const double step = StepFor(shown.Length());
  const double atBegin = begin.value_or(0);
  std::vector<ClassPicture::AxisMark> marks;
  const double first = std::ceil((atBegin + shown.begin) / step);
  for (double mark = first; mark * step - atBegin <= shown.end; mark += 1) {
    const double second = mark * step - atBegin;
    marks.push_back({second, begin ? ClockText(mark * step)
                                   : Say(Text::minutesMark, {WholeSecondsText(second / kMinute)})});
  }
  return marks;
}

std::string ClockText(double secondOfDay) {
  constexpr int kMinutesOfHour = 60;
  constexpr double kMinutesOfDay = 24 * kMinutesOfHour;
  const auto minute = static_cast<int>(std::fmod(std::floor(secondOfDay / kMinute), kMinutesOfDay));
  return TwoDigits(minute / kMinutesOfHour) + ":" + TwoDigits(minute % kMinutesOfHour);
}

}  // namespace orvex
