#include "model/segment_data.h"

#include "model/time_of_day.h"

namespace orvex {

void SegmentData::SetData(std::int16_t activity, float seconds, const SegmentCodes& codes) {
  *this = SegmentData{};
  activityNum = activity;
  duration = WholeSeconds(seconds);
  grpSolo = 1;
  org = 0;
  if (CarriesAbout(activity)) {
    aboutdata = codes.about;
  } else if (IsPresentation(activity)) {
    grpSolo = codes.grpSolo;
    prep = codes.prep;
    org = codes.org7;
  } else if (IsSeatwork(activity)) {
    fSubCat = codes.fSubCat;
    src = codes.src;
    coglvl = codes.coglvl;
    org = codes.org14;
  } else if (IsGroupWork(activity)) {
    fSubCat = codes.fSubCat;
  }
}

}  // namespace orvex
