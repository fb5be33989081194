#pragma once

#include <string>
#include <string_view>

namespace orvex {

/// The dialog that divides a segment's time: what is typed for the second part, and what is left
/// for the first.
class DivideTime {
 public:
  explicit DivideTime(int totalSeconds);

  int TotalSeconds() const { return totalSeconds_; }             ///< the highest value of `UpDown1`
  int SecondSeconds() const { return secondSeconds_; }           ///< what was last accepted
  std::string FirstText() const;                                 ///< `txtFirstSg`
  const std::string& SecondText() const { return secondText_; }  ///< `txtSecondSg`

  /// Takes what was typed. A text that is no number from 0 to the total gives way to the last
  /// accepted one.
  void TypeSecond(std::string_view text);
  /// The spin control, up or down.
  bool CanStep(int steps) const;
  void Step(int steps);

 private:
  int totalSeconds_;
  int secondSeconds_ = 0;
  std::string secondText_ = "0";
};

}  // namespace orvex
