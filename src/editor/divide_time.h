#pragma once

#include <string>
#include <string_view>

namespace orvex {

/// The dialog that divides a segment's time: what is typed for the second part, and what is left
/// for the first.
class DivideTime {
 public:
  explicit DivideTime(int totalSeconds);

  /// The seconds of the second part that were last accepted.
  int SecondSeconds() const { return secondSeconds_; }
  std::string FirstText() const;
  const std::string& SecondText() const { return secondText_; }

  /// Takes what was typed. A text that is no number from 0 to the total gives way to the last
  /// accepted one.
  void TypeSecond(std::string_view text);
  /// One second up or down, or several.
  bool CanStep(int steps) const;
  void Step(int steps);

 private:
  int totalSeconds_;
  int secondSeconds_ = 0;
  std::string secondText_ = "0";
};

}  // namespace orvex
