#pragma once

#include <string>

#include "model/texts.h"

namespace orvex {

class Clock;

/// A stopwatch with laps. It knows no midnight: a lap across it counts backwards.
class Stopwatch {
 public:
  explicit Stopwatch(const Clock& clock) : clock_(&clock) {}

  /// Starts it; once it runs, ends a lap and begins the next.
  void Start();
  /// As if it had never been started.
  void Reset() { *this = Stopwatch(*clock_); }
  /// Once a second while it runs.
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
