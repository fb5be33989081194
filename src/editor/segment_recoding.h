#pragma once

#include "model/segment_data.h"
#include "model/texts.h"

namespace orvex {

/// The name of the undo step that changes `code`, such as "Change source".
Text RecodingName(SubCode code);

/// Gives the segment the value at `position` (from 0) of the code's list or pair; any other
/// position resets the code to its value without a choice. Returns false, and changes nothing, if
/// the segment's activity does not carry this code.
bool Recode(SegmentData& segment, SubCode code, int position);

}  // namespace orvex
