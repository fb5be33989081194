#include "observe/stopwatch.h"

#include <cmath>

#include "model/clock.h"
#include "model/time_of_day.h"

namespace orvex {

std::string Stopwatch::SecondsSince(float start) const {
  const float seconds = clock_->SecondsSinceMidnight() - start;
  return std::to_string(std::lround(RoundHalfEven(static_cast<double>(seconds)))) + " sec.";
}

void Stopwatch::Start() {
  if (started_) {
    previousText_ = "PREVIOUS TIME SEGMENT = " + SecondsSince(lapStart_);
  } else {
    totalStart_ = clock_->SecondsSinceMidnight();
    started_ = true;
  }
  lapStart_ = clock_->SecondsSinceMidnight();
}

void Stopwatch::Tick() {
  elapsedText_ = "Time elapsed: " + SecondsSince(lapStart_);
  totalText_ = "Total time: " + SecondsSince(totalStart_);
}

}  // namespace orvex
