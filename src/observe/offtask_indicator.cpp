#include "observe/offtask_indicator.h"

#include "model/clock.h"

namespace orvex {

void OfftaskIndicator::Tick(std::int32_t pending, std::int32_t countdown) {
  buttonVisible_ = pending >= 1;
  if (buttonVisible_) {
    countdownText_.clear();
    blank_ = !blank_;
    buttonCaption_ = blank_ ? "" : "* &OFFTASK *";
  } else {
    countdownText_ =
        countdown < 1 ? "" : "Offtask in     :            00 : " + TwoDigits(countdown);
  }
}

}  // namespace orvex
