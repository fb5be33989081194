#pragma once

#include <cstdint>
#include <string>

#include "model/segment_data.h"

namespace orvex {

/// What the observer has set on the live form for the running segment: the chosen activity and the
/// sub-codes, and which of their panels are shown and enabled.
struct SegmentCoding {
  bool choicesVisible = false;       ///< activity buttons, their headings, seatwork, group types
  bool aboutVisible = false;         ///< the About button
  bool presentationVisible = false;  ///< the frames Group/Solo, Preparation and Organization
  bool seatworkEnabled = false;
  bool groupTypesEnabled = false;

  std::string about;
  std::int16_t grpSolo = kSolo;
  std::int16_t prep = kUncoded;
  std::int16_t presentationOrg = 0;
  std::int16_t writingKind = kUncoded;
  std::string source = "no coding";
  std::string cognitiveLevel = "no coding";
  std::string seatworkOrg = "T";
  std::int16_t groupType = kUncoded;

  void ShowActivityChoices(bool show);
  void ClearActivityChoices();
  void ResetPresentation();
  void ResetSeatworkCoding();
  void EnableSeatworkCoding(bool enable) { seatworkEnabled = enable; }
  void ResetGroupTypes();
  void EnableGroupTypes(bool enable) { groupTypesEnabled = enable; }
  /// Everything as it stands when a segment starts.
  void ResetForNewSegment();

  /// The writing kind for seatwork, the group type for activity 17, otherwise kUncoded.
  std::int16_t GetSubCategory(int activity) const;
  /// The sub-codes as a segment of `activity` stores them.
  SegmentCodes Codes(int activity) const;

 private:
  static constexpr std::int16_t kSolo = 1;
};

}  // namespace orvex
