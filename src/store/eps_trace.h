#pragma once

#include <vector>

#include "store/eps_reader.h"
#include "store/field_reader.h"
#include "store/text_encoding.h"

namespace orvex {

/// The fields and lines that the reader takes from an episode file, in order. They point into
/// `file`. Throws as ParseEps does.
std::vector<ReadField> TraceEps(const DecodedText& file, EpsReadEvents& events);

}  // namespace orvex
