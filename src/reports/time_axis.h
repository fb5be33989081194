#pragma once

#include <optional>
#include <vector>

#include "reports/class_picture.h"

namespace orvex {

/// The marks of an axis that shows a part of a time, about a dozen at most, on round minutes: of
/// the clock, where it is known at which second of the day that time begins, otherwise of the time.
std::vector<ClassPicture::AxisMark> TimeAxis(const Stretch& shown, std::optional<int> begin);

/// "09:05": a second of the day, or of a later one, without its seconds.
std::string ClockText(double secondOfDay);

}  // namespace orvex
