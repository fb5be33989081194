#pragma once

#include "model/segment_data.h"
#include "model/texts.h"

namespace orvex {

/// What is done to a segment whose code is changed: "Change source".
Text RecodingName(SubCode code);

/// Gives the segment the code at `position` of its list or pair, from 0; any other position takes
/// back what can be taken back. False, and nothing is changed, when the segment's activity does not
/// carry such a code.
bool Recode(SegmentData& segment, SubCode code, int position);

}  // namespace orvex
