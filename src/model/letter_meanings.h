#pragma once

#include <string_view>

#include "model/dimensions.h"

namespace orvex {

/// What the letters of `dimension` mean, in one line to be read while coding:
/// "R report: what is known or was read.  H higher order: ..."
std::string_view LetterMeanings(Dimension dimension);

}  // namespace orvex
