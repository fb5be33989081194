#include "running/segment_coding.h"

#include <algorithm>

#include "model/texts.h"

namespace orvex {
namespace {

/// The index of the name that equals `text` exactly; kUncoded if there is none.
std::int16_t PositionIn(std::span<const std::string_view> names, std::string_view text) {
  const auto found = std::ranges::find(names, text);
  return found == names.end() ? kUncoded : static_cast<std::int16_t>(found - names.begin());
}

}  // namespace

void SegmentCoding::ResetForNewSegment() {
  ResetCodes(Say(Text::codingOfNewSegment));
  about.clear();
}

void SegmentCoding::ResetCodes(std::string_view noCoding) {
  const SegmentData blank;
  for (const SubCodeScheme& scheme : kSubCodes) {
    if (scheme.typed) {
      const std::int16_t code = blank.*scheme.stored;
      Typed(scheme.code) =
          code == kUncoded ? noCoding : scheme.values[static_cast<std::size_t>(code)];
    } else {
      Chosen(scheme.code) = blank.*scheme.stored;
    }
  }
}

SegmentData SegmentCoding::Segment(int activity, float seconds) const {
  SegmentData segment;
  segment.SetData(static_cast<std::int16_t>(activity), seconds);
  if (ActivityOf(activity).carriesAbout) segment.aboutdata = about;
  for (const SubCode code : ActivityOf(activity).subCodes) {
    const SubCodeScheme& scheme = SchemeOf(code);
    segment.*scheme.stored = scheme.typed ? PositionIn(scheme.values, Typed(code)) : Chosen(code);
  }
  return segment;
}

}  // namespace orvex
