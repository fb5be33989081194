#include "editor/segment_recoding.h"

#include <cstdint>

#include "model/activities.h"
#include "model/texts.h"

namespace orvex {
namespace {

/// The value of a code for which nothing is chosen.
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

Text RecodingName(SubCode code) {
  switch (code) {
    case SubCode::writing:
    case SubCode::groupWork:
      return Text::changeSubcategory;
    case SubCode::groupSolo:
      return Text::changeGroupSolo;
    case SubCode::preparation:
      return Text::changePreparation;
    case SubCode::organization:
    case SubCode::seatworkOrganization:
      return Text::changeOrganization;
    case SubCode::seatworkSource:
      return Text::changeSource;
    case SubCode::seatworkLevel:
      break;
  }
  return Text::changeLevel;
}

bool Recode(SegmentData& segment, SubCode code, int position) {
  if (!Carries(segment.activityNum, code)) return false;
  const SubCodeScheme& scheme = SchemeOf(code);
  const bool isThere = position >= 0 && position < static_cast<int>(scheme.values.size());
  segment.*scheme.stored = isThere ? static_cast<std::int16_t>(position) : Unchosen(code);
  return true;
}

}  // namespace orvex
