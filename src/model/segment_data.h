#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/coding_scheme.h"

namespace orvex {

/// The sub-codes an observer has set for a segment, whatever its activity: `SetData` keeps those
/// that the activity carries. `org7` is the organization of a student presentation, `org14` that
/// of seatwork.
struct SegmentCodes {
  std::string about;
  std::int16_t fSubCat = kUncoded;
  std::int16_t grpSolo = kUncoded;
  std::int16_t prep = kUncoded;
  std::int16_t org7 = kUncoded;
  std::int16_t src = kUncoded;
  std::int16_t coglvl = kUncoded;
  std::int16_t org14 = kUncoded;
};

/// A period of one activity within an episode.
struct SegmentData {
  std::int16_t activityNum = 0;  ///< 1 to 17
  float duration = 0;            ///< whole seconds
  std::string aboutdata;         ///< what activities 4, 6 and 12 were about
  std::int16_t fSubCat = kUncoded;
  std::int16_t grpSolo = kUncoded;
  std::int16_t prep = kUncoded;
  std::int16_t org = kUncoded;
  std::int16_t src = kUncoded;
  std::int16_t coglvl = kUncoded;

  bool operator==(const SegmentData&) const = default;

  /// Fills the record, keeping of `codes` only what `activity` carries. `seconds` is rounded to
  /// whole seconds, a half to the even neighbour; a negative one (the segment ran past midnight)
  /// first has a day added.
  void SetData(std::int16_t activity, float seconds, const SegmentCodes& codes);
};

}  // namespace orvex
