#include "model/segment_data.h"

#include "model/time_of_day.h"

namespace orvex {

void SegmentData::SetData(std::int16_t activity, float seconds) {
  *this = {};
  activityNum = activity;
  duration = WholeSeconds(seconds);
}

}  // namespace orvex
