#pragma once

#include <algorithm>

#include "reports/class_picture.h"

namespace orvex {

/// Where seconds of a class stand on a horizontal axis.
struct TimeScale {
  Stretch shown;     ///< what fills the width
  double left = 0;   ///< where it begins
  double right = 0;  ///< where it ends

  double X(double second) const {
    return left + (second - shown.begin) * (right - left) / Seconds();
  }
  double SecondAt(double x) const {
    return shown.begin + (x - left) * Seconds() / std::max(1.0, right - left);
  }
  bool Shows(double second) const { return second >= shown.begin && second <= shown.end; }
  /// What is shown of a stretch; without a length where nothing is.
  Stretch Visible(const Stretch& stretch) const {
    const double begin = std::clamp(stretch.begin, shown.begin, shown.end);
    return {begin, std::clamp(stretch.end, begin, std::max(begin, shown.end))};
  }

 private:
  double Seconds() const { return std::max(1e-3, shown.Length()); }
};

}  // namespace orvex
