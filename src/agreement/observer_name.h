#pragma once

#include <string>

namespace orvex {

struct Agreement;

/// One of the two observers that are compared.
enum class Side { first, second };

/// What tells the two observers apart: the initials, or the names of the files, without extension,
/// where the initials do not.
std::string NameOfObserver(const Agreement& agreement, Side side);

}  // namespace orvex
