#include "ui/QtClock.h"

#include <time.h>

#include <QDate>
#include <QDateTime>
#include <QTime>

namespace orvex {
namespace {

// Times are cut to hundredths: a float would round the last millisecond of the day to 86400.
constexpr std::int64_t kHundredths = 100;
constexpr std::int64_t kHundredthsPerDay = 24 * 60 * 60 * kHundredths;

/// Hundredths of a second since the system started, including sleep.
std::int64_t SystemCount() {
  constexpr std::int64_t kNanosecondsPerHundredth = 10'000'000;
  timespec count = {};
  ::clock_gettime(CLOCK_BOOTTIME, &count);
  return count.tv_sec * kHundredths + count.tv_nsec / kNanosecondsPerHundredth;
}

std::int64_t WallHundredths() {
  return QTime::currentTime().msecsSinceStartOfDay() / 10;
}

float Seconds(std::int64_t hundredths) {
  return static_cast<float>(static_cast<double>(hundredths) / static_cast<double>(kHundredths));
}

}  // namespace

QtClock::QtClock() : midnight_(SystemCount() - WallHundredths()) {}

float QtClock::SecondsSinceMidnight() const {
  return Seconds((SystemCount() - midnight_) % kHundredthsPerDay);
}

float QtClock::WallSeconds() const {
  return Seconds(WallHundredths());
}

Date QtClock::Today() const {
  const QDate today = QDate::currentDate();
  return {today.year(), today.month(), today.day()};
}

std::int64_t QtClock::UnixSeconds() const {
  return QDateTime::currentSecsSinceEpoch();
}

}  // namespace orvex
