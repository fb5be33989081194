#include "editor/divide_time.h"

#include <cstdint>

#include "model/time_of_day.h"
#include "store/numbers.h"

namespace orvex {

DivideTime::DivideTime(int totalSeconds) : totalSeconds_(totalSeconds) {}

std::string DivideTime::FirstText() const {
  return std::to_string(totalSeconds_ - secondSeconds_);
}

void DivideTime::TypeSecond(std::string_view text) {
  const auto typed = TypedNumber(text);
  const double seconds = typed ? RoundHalfEven(*typed) : -1.0;
  if (seconds < 0 || seconds > totalSeconds_) {
    secondText_ = std::to_string(secondSeconds_);
    return;
  }
  secondSeconds_ = static_cast<int>(seconds);
  secondText_ = text;
}

bool DivideTime::CanStep(int steps) const {
  const std::int64_t seconds = std::int64_t{secondSeconds_} + steps;
  return seconds >= 0 && seconds <= totalSeconds_;
}

void DivideTime::Step(int steps) {
  if (CanStep(steps)) TypeSecond(std::to_string(secondSeconds_ + steps));
}

}  // namespace orvex
