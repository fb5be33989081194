#pragma once

#include <string>

namespace orvex {

class LiveObservation;

/// The off-task prompt of a form: the countdown to the next estimate, and a button that blinks
/// while estimates are pending.
class OfftaskIndicator {
 public:
  explicit OfftaskIndicator(LiveObservation& live) : live_(live) {}

  /// To be called once a second.
  void Tick();
  /// Asks for a pending estimate. If more are pending, the next tick shows the button again.
  void TakeEstimate();

  /// False as soon as nothing is pending, even before the next tick.
  bool ButtonVisible() const;
  /// True every other second, to make the button blink.
  bool ButtonBlank() const { return blank_; }
  /// The number of pending estimates.
  int Pending() const;
  std::string CountdownText() const;

 private:
  LiveObservation& live_;
  bool buttonVisible_ = false;
  bool blank_ = false;
};

}  // namespace orvex
