#pragma once

#include <string>

#include "model/texts.h"

namespace orvex {

class Clock;

/// A stopwatch with laps. It does not handle midnight: after it, the times are negative.
class Stopwatch {
 public:
  explicit Stopwatch(const Clock& clock) : clock_(&clock) {}

  /// Starts the stopwatch. If it is already running, ends a lap and begins the next.
  void Start();
  /// Returns to the state before the first start.
  void Reset() { *this = Stopwatch(*clock_); }
  /// To be called once a second while the stopwatch runs.
  void Tick();

  const std::string& ElapsedText() const { return elapsedText_; }
  const std::string& TotalText() const { return totalText_; }
  const std::string& PreviousText() const { return previousText_; }

 private:
  std::string SecondsSince(float start) const;

  const Clock* clock_;
  bool started_ = false;
  float lapStart_ = 0;
  float totalStart_ = 0;
  std::string elapsedText_ = Say(Text::watchElapsed, {""});
  std::string totalText_ = Say(Text::watchTotal, {""});
  std::string previousText_ = Say(Text::watchPrevious, {""});
};

}  // namespace orvex
