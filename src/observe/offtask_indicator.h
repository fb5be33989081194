#pragma once

#include <string>

namespace orvex {

class LiveObservation;

/// The off-task prompt of a form: the countdown to the next estimate, and the button that blinks
/// while estimates are pending.
class OfftaskIndicator {
 public:
  explicit OfftaskIndicator(LiveObservation& live) : live_(live) {}

  /// Once a second.
  void Tick();
  /// The next tick shows the button again if more estimates are pending.
  void TakeEstimate();

  /// Whatever ends the schedule takes the button with it at once.
  bool ButtonVisible() const;
  /// In every other second the button is blank.
  bool ButtonBlank() const { return blank_; }
  /// How many estimates are pending.
  int Pending() const;
  std::string CountdownText() const;

 private:
  LiveObservation& live_;
  bool buttonVisible_ = false;
  bool blank_ = false;
};

}  // namespace orvex
