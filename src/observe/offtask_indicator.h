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
  /// Takes the estimate; the next tick shows the button again if more of them are pending.
  void cmdOfftaskActive_Click();

  /// Whatever ends the schedule takes the button with it at once.
  bool ButtonVisible() const;
  std::string ButtonCaption() const { return blank_ ? "" : "* &OFFTASK *"; }
  /// How many estimates are pending.
  int Pending() const;
  std::string CountdownText() const;

 private:
  LiveObservation& live_;
  bool buttonVisible_ = false;
  bool blank_ = false;
};

}  // namespace orvex
