#pragma once

#include <functional>
#include <vector>

#include "desk/prompter.h"

namespace orvex {

/// Something that an earlier run of the program left unfinished, and what can be done about it: a
/// class that was not ended, a file with changes that were not saved. All of them are offered
/// together (see OfferUnfinished).
struct Unfinished {
  UnfinishedItem item;
  /// Takes it up. True, when its forms are shown: what else is unfinished is left for later. False,
  /// when the user has been told why not.
  std::function<bool()> takeUp;
  /// Closes a class as it stands, or discards changes. What cannot be done is told and stays.
  std::function<void()> close;
};

/// Offers what is unfinished: a single thing in a box, several in one list, from which one after
/// the other can be taken up, closed or left for later. True when one is taken up.
bool OfferUnfinished(Prompter& prompter, std::vector<Unfinished> all);

}  // namespace orvex
