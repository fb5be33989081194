#pragma once

#include <QColor>
#include <optional>

#include "model/activities.h"

namespace orvex {

/// The colour of an activity: that of its group. The groups' colours differ in brightness as well
/// as in hue, so that every eye can tell them apart, and so can a grey print. Nothing for a number
/// that is no activity.
std::optional<QColor> ColourOf(int activity);
QColor ColourOf(ActivityGroup group);

/// Black or white, whichever is easier to read on `ground`.
QColor InkOn(const QColor& ground);

}  // namespace orvex
