#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/activities.h"
#include "model/texts.h"

namespace orvex {

/// What the observer has set on the live form for the running segment, whatever its activity.
struct SegmentCoding {
  bool choicesVisible = false;  ///< the activities and what they are coded on are shown

  std::string about;
  /// The codes that are chosen, by sub-code, and what is typed where they are typed.
  std::array<std::int16_t, kSubCodeCount> chosen{};
  std::array<std::string, kSubCodeCount> typed;

  SegmentCoding() { ResetForNewSegment(); }

  std::int16_t& Chosen(SubCode code) { return chosen[static_cast<std::size_t>(code)]; }
  std::int16_t Chosen(SubCode code) const { return chosen[static_cast<std::size_t>(code)]; }
  std::string& Typed(SubCode code) { return typed[static_cast<std::size_t>(code)]; }
  const std::string& Typed(SubCode code) const { return typed[static_cast<std::size_t>(code)]; }

  /// Takes every code back: another activity is chosen for the segment.
  void ResetForNewActivity() { ResetCodes(Say(Text::codingOfNewActivity)); }
  /// Everything as it stands when a segment starts.
  void ResetForNewSegment();

  /// A segment of `activity` with the codes that it carries.
  SegmentData Segment(int activity, float seconds) const;

 private:
  void ResetCodes(std::string_view noCoding);
};

}  // namespace orvex
