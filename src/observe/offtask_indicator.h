#pragma once

#include <cstdint>
#include <string>

namespace orvex {

/// The off-task prompt of a form: the countdown to the next estimate, and the button that blinks
/// while estimates are pending.
class OfftaskIndicator {
 public:
  /// Once a second.
  void Tick(std::int32_t pending, std::int32_t countdown);

  bool ButtonVisible() const { return buttonVisible_; }
  const std::string& ButtonCaption() const { return buttonCaption_; }
  const std::string& CountdownText() const { return countdownText_; }

 private:
  bool buttonVisible_ = false;
  bool blank_ = false;
  std::string buttonCaption_;
  std::string countdownText_;
};

}  // namespace orvex
