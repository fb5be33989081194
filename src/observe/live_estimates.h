#pragma once

#include "desk/services.h"
#include "running/running_class.h"

namespace orvex {

class ObservationHeader;

/// Asks for the off-task estimates of a class in progress, and records and logs them.
class LiveEstimates {
 public:
  LiveEstimates(const Services& services, RunningClass& running, ObservationHeader& header)
      : services_(services), running_(running), header_(header) {}

  /// To be called every 500 ms while the schedule runs.
  void Tick();
  /// Asks for a pending estimate. Even if skipped, it is no longer pending.
  void TakePending();
  /// Asks for an estimate, even if none is pending.
  void Ask();

 private:
  void Record(const EstimateDialog& accepted);

  Services services_;
  RunningClass& running_;
  ObservationHeader& header_;
};

}  // namespace orvex
