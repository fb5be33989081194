#pragma once

#include <array>
#include <string>

#include "model/program.h"

namespace orvex {

/// Tells a class that was observed from all others: by its school, its number and the day.
/// Observations with the same key are of one class.
using ClassKey = std::array<std::string, 3>;
ClassKey ClassKeyOf(Identity identity, const std::string& date);

}  // namespace orvex
