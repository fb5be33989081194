#include "model/offtask_cadence.h"

#include "model/activities.h"
#include "model/time_of_day.h"

namespace orvex {

float NextEstimateIndex(float seconds, float cadence) {
  constexpr float kMinute = 60;
  const float minutes = seconds / kMinute;
  const auto passed =
      static_cast<float>(RoundHalfEven(static_cast<double>((minutes + 1) / cadence - 0.5F)));
  return passed + (cadence == kUsualCadence ? 1.0F : 0.6F);
}

}  // namespace orvex
