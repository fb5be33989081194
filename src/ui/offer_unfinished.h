#pragma once

#include "desk/services.h"

namespace orvex {

/// Offers all work that an earlier run of the program left unfinished, of whatever kind it is: once
/// a window is in use at start-up, and when another data folder has been chosen. Another kind of
/// work is added in here, as a list of what can be done about each.
void OfferUnfinishedWork(const Services& services);

}  // namespace orvex
