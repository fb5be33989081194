#pragma once

#include <vector>

namespace orvex {

struct ClassLog;

/// An off-task estimate that fell due and that nobody entered.
struct MissedEstimate {
  double second = 0;  ///< of the class, when it was due
  int activity = 0;
};

/// The estimates that were missed in a class, as far as its session log tells for certain. An
/// estimate answers the latest one that was due before it, so of two that were due and one that was
/// entered when the segment ended, the earlier was missed. Nothing counts as missed
/// - in a segment that has not ended, whose activity or times were changed while it went on, or
///   that has an estimate at a time outside it;
/// - at the end of a segment, where the observer may not have been asked;
/// - less than a few seconds before that end.
std::vector<MissedEstimate> MissedEstimates(const ClassLog& log);

}  // namespace orvex
