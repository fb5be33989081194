#include "editor/segment_recoding.h"

#include <cstdint>

#include "model/activities.h"

namespace orvex {
namespace {

/// What the code is without a choice.
std::int16_t Unchosen(SubCode code) {
  switch (code) {
    case SubCode::seatworkOrganization:
      return 0;
    case SubCode::groupSolo:
    case SubCode::organization:
      return 1;
    default:
      return kUncoded;
  }
}

}  // namespace

const char* RecodingName(SubCode code) {
  switch (code) {
    case SubCode::writing:
    case SubCode::groupWork:
      return "Change subcategory";
    case SubCode::groupSolo:
      return "Change group or solo";
    case SubCode::preparation:
      return "Change preparation";
    case SubCode::organization:
    case SubCode::seatworkOrganization:
      return "Change organization";
    case SubCode::seatworkSource:
      return "Change source";
    case SubCode::seatworkLevel:
      return "Change cognitive level";
  }
  return "";
}

bool Recode(SegmentData& segment, SubCode code, int position) {
  if (!Carries(segment.activityNum, code)) return false;
  const SubCodeScheme& scheme = SchemeOf(code);
  const bool isThere = position >= 0 && position < static_cast<int>(scheme.values.size());
  segment.*scheme.stored = isThere ? static_cast<std::int16_t>(position) : Unchosen(code);
  return true;
}

}  // namespace orvex
