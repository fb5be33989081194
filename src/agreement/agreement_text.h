#pragma once

#include <optional>
#include <string>

#include "agreement/agreement.h"

namespace orvex {

class Comparison;

/// The date of the class; both where the two observed on different days.
std::string DatesText(const Agreement& agreement);

/// The agreement of two observers as lines of tab-separated fields.
std::string TextOf(const Agreement& agreement);

/// How often which codes were given by the two, the first's in rows, with sums, as lines of
/// tab-separated fields: in a dimension, a position in ComparedDimensions(), or, without one, the
/// seconds of the activities.
std::string ConfusionText(const Agreement& agreement, std::optional<std::size_t> dimension);

/// The questions that only one of the two wrote down, or that they coded otherwise: a line of
/// tab-separated fields for each, under a heading.
std::string DisagreementsText(const Comparison& comparison);

}  // namespace orvex
