#include "ui/QtClock.h"

#include <QDate>
#include <QTime>

namespace orvex {

float QtClock::SecondsSinceMidnight() const {
  // Hundredths, cut off: in single precision the last millisecond of the day would be 86400.
  const int hundredths = QTime::currentTime().msecsSinceStartOfDay() / 10;
  return static_cast<float>(hundredths / 100.0);
}

Date QtClock::Today() const {
  const QDate today = QDate::currentDate();
  return {today.year(), today.month(), today.day()};
}

}  // namespace orvex
