#include "observe/stopwatch.h"

#include <cmath>

#include "model/clock.h"
#include "model/texts.h"
#include "model/time_of_day.h"

namespace orvex {

std::string Stopwatch::SecondsSince(float start) const {
  const float seconds = clock_->SecondsSinceMidnight() - start;
  return Say(Text::watchSeconds, {std::lround(RoundHalfEven(static_cast<double>(seconds)))});
}

void Stopwatch::Start() {
  if (started_) {
    previousText_ = Say(Text::watchPrevious, {SecondsSince(lapStart_)});
  } else {
    totalStart_ = clock_->SecondsSinceMidnight();
    started_ = true;
  }
  lapStart_ = clock_->SecondsSinceMidnight();
}

void Stopwatch::Tick() {
  elapsedText_ = Say(Text::watchElapsed, {SecondsSince(lapStart_)});
  totalText_ = Say(Text::watchTotal, {SecondsSince(totalStart_)});
}

}  // namespace orvex
