#pragma once

#include <functional>
#include <vector>

#include "desk/prompter.h"

namespace orvex {

/// Something that an earlier run of the program left unfinished, and what can be done about it: a
/// class that was not ended, a file with changes that were not saved. Whoever keeps such a thing
/// makes one of these of it; what all of them make is offered together (see OfferUnfinished).
struct Unfinished {
  UnfinishedItem item;
  /// Goes on with it. True, when its forms are shown: what else is unfinished waits for another
  /// time. False, when the user has been told why not.
  std::function<bool()> goOn;
  /// Brings it to an end as it stands, or drops it. What cannot be done is told and stays.
  std::function<void()> close;
};

/// Offers what is unfinished: a single thing in a box, several in one list, from which one after
/// the other can be gone on with, brought to an end or left for later. True when one is gone on
/// with.
bool OfferUnfinished(Prompter& prompter, std::vector<Unfinished> all);

}  // namespace orvex
