#pragma once

#include "desk/services.h"
#include "running/running_class.h"

namespace orvex {

class ObservationHeader;

/// The off-task estimates of a class in progress: when they are asked for, and what becomes of
/// them.
class LiveEstimates {
 public:
  LiveEstimates(const Services& services, RunningClass& running, ObservationHeader& header)
      : services_(services), running_(running), header_(header) {}

  /// Every 500 ms while the schedule runs.
  void Tick();
  /// Asks for the estimate that is pending; made or skipped, it is pending no longer.
  void TakePending();
  /// Asks for an estimate, whatever is pending.
  void Ask();

 private:
  void Record(const EstimateDialog& accepted);

  Services services_;
  RunningClass& running_;
  ObservationHeader& header_;
};

}  // namespace orvex
