#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/activities.h"
#include "model/texts.h"

namespace orvex {

/// What the observer has set on the live form for the running segment, for any activity.
struct SegmentCoding {
  bool choicesVisible = false;  ///< show the activities and their sub-codes

  std::string about;
  /// For each sub-code, the chosen code, or the text if its value is typed.
  std::array<std::int16_t, kSubCodeCount> chosen{};
  std::array<std::string, kSubCodeCount> typed;

  SegmentCoding() { ResetForNewSegment(); }

  std::int16_t& Chosen(SubCode code) { return chosen[static_cast<std::size_t>(code)]; }
  std::int16_t Chosen(SubCode code) const { return chosen[static_cast<std::size_t>(code)]; }
  std::string& Typed(SubCode code) { return typed[static_cast<std::size_t>(code)]; }
  const std::string& Typed(SubCode code) const { return typed[static_cast<std::size_t>(code)]; }

  /// Resets every code, for a revised activity of the segment.
  void ResetForNewActivity() { ResetCodes(Say(Text::codingOfNewActivity)); }
  /// Resets the codes and the text for a segment that starts.
  void ResetForNewSegment();

  /// A segment of `activity` that lasts `seconds`, with the codes that this activity has.
  SegmentData Segment(int activity, float seconds) const;

 private:
  void ResetCodes(std::string_view noCoding);
};

}  // namespace orvex
