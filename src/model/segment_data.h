#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "model/code.h"

namespace orvex {

/// The further codes that some activities carry.
enum class SubCode {
  writing,
  groupWork,
  groupSolo,
  preparation,
  organization,
  seatworkSource,
  seatworkLevel,
  seatworkOrganization,
};
inline constexpr std::size_t kSubCodeCount = 8;

/// A period of one activity within an episode. Codes that its activity does not carry have their
/// initial values, unless the segment had another activity before.
struct SegmentData {
  std::int16_t activityNum = 0;
  float duration = 0;     ///< whole seconds
  std::string aboutdata;  ///< what the activity was about
  std::int16_t fSubCat = kUncoded;
  std::int16_t grpSolo = 1;
  std::int16_t prep = kUncoded;
  std::int16_t org = 0;
  std::int16_t src = kUncoded;
  std::int16_t coglvl = kUncoded;

  bool operator==(const SegmentData&) const = default;

  /// Makes this a segment of `activity` that has no codes yet. `seconds` is rounded to whole
  /// seconds, a half to the even neighbour; a negative value (the segment ran past midnight) first
  /// has a day added.
  void SetData(std::int16_t activity, float seconds);
};

}  // namespace orvex
