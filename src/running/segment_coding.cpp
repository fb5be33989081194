#include "running/segment_coding.h"

#include <algorithm>
#include <string_view>

namespace orvex {
namespace {

/// The position of `text` in a list of a combo box, to the letter; kUncoded when it is not there.
template <typename Names>
std::int16_t PositionIn(const Names& names, std::string_view text) {
  const auto found = std::find(names.begin(), names.end(), text);
  return found == names.end() ? kUncoded : static_cast<std::int16_t>(found - names.begin());
}

}  // namespace

void SegmentCoding::ShowActivityChoices(bool show) {
  // Choices that are there already keep what belongs to the one made.
  if (show && choicesVisible) return;
  choicesVisible = show;
  aboutVisible = false;
}

void SegmentCoding::ClearActivityChoices() {
  aboutVisible = false;
  ResetSeatworkCoding();
  ResetGroupTypes();
}

void SegmentCoding::ResetPresentation() {
  grpSolo = kSolo;
  prep = kUncoded;
  presentationOrg = 0;
}

void SegmentCoding::ResetSeatworkCoding() {
  writingKind = kUncoded;
  source = "No coding";
  cognitiveLevel = "No coding";
  seatworkOrg = "T";
  seatworkEnabled = false;
}

void SegmentCoding::ResetGroupTypes() {
  groupType = kUncoded;
  groupTypesEnabled = false;
}

void SegmentCoding::ResetForNewSegment() {
  ClearActivityChoices();
  presentationVisible = false;
  ResetPresentation();
  source = "no coding";
  cognitiveLevel = "no coding";
  about.clear();
}

std::int16_t SegmentCoding::GetSubCategory(int activity) const {
  if (IsSeatwork(activity)) return writingKind;
  if (IsGroupWork(activity)) return groupType;
  return kUncoded;
}

SegmentCodes SegmentCoding::Codes(int activity) const {
  return {.about = about,
          .fSubCat = GetSubCategory(activity),
          .grpSolo = grpSolo,
          .prep = prep,
          .org7 = presentationOrg,
          .src = PositionIn(SeatworkSources, source),
          .coglvl = PositionIn(SeatworkCognitiveLevels, cognitiveLevel),
          .org14 = PositionIn(SeatworkOrganizations, seatworkOrg)};
}

}  // namespace orvex
