#pragma once

#include <string>

#include "model/program.h"

namespace orvex {

struct Agreement;

/// One of the two observers that are compared.
enum class Side { first, second };

/// What an observer's observations have in common: the initials, case and blanks around them aside.
/// "" where they are missing: nobody knows whose such observations are.
std::string ObserverKey(const Identity& identity);
/// The initials as they are shown; "(no initials)" where they are missing.
std::string ShownInitials(const Identity& identity);

/// What tells the two observers apart: the initials, or the names of the files, without extension,
/// where the initials do not.
std::string NameOfObserver(const Agreement& agreement, Side side);

}  // namespace orvex
