#pragma once

#include <string>

#include "tables/observation_content.h"

namespace orvex {

/// An observation and its reports as a JSON object on one line. `observation.name` is the path of
/// its episode file, and appears in it unchanged.
std::string ObservationJson(const ObservationContent& observation);

}  // namespace orvex
