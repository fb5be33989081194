#pragma once

#include <string>
#include <string_view>

namespace orvex {

/// The state of the dialog that divides a segment's time. The user types the seconds of the second
/// part; the rest stays with the first.
class DivideTime {
 public:
  explicit DivideTime(int totalSeconds);

  /// The last accepted number of seconds of the second part.
  int SecondSeconds() const { return secondSeconds_; }
  std::string FirstText() const;
  const std::string& SecondText() const { return secondText_; }

  /// Takes what the user typed, rounded to whole seconds. If it is not a number from 0 to the
  /// total, the last accepted one is shown again.
  void TypeSecond(std::string_view text);
  /// Whether the second part can change by `steps` seconds, up or (negative) down.
  bool CanStep(int steps) const;
  void Step(int steps);

 private:
  int totalSeconds_;
  int secondSeconds_ = 0;
  std::string secondText_ = "0";
};

}  // namespace orvex
