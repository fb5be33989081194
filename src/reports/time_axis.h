#pragma once

#include <optional>
#include <vector>

#include "reports/class_picture.h"

namespace orvex {

/// The marks of an axis of so many seconds, about a dozen at most, on round minutes: of the clock,
/// where it is known at which second of the day the axis begins, otherwise of the axis.
std::vector<ClassPicture::AxisMark> TimeAxis(double seconds, std::optional<int> begin);

/// "09:05": a second of the day, or of a later one, without its seconds.
std::string ClockText(double secondOfDay);

}  // namespace orvex
