#pragma once

#include <functional>
#include <vector>

#include "desk/prompter.h"

namespace orvex {

/// Work that an earlier run of the program left unfinished, and what can be done about it: a class
/// that was not ended, or a file with unsaved changes. All of it is offered together (see
/// OfferUnfinished).
struct Unfinished {
  UnfinishedItem item;
  /// Takes it up. True when its forms are now shown; other unfinished work is then left for later.
  /// False when the menu stays: taking it up failed (the user has been told), or it only needed a
  /// dialog.
  std::function<bool()> takeUp;
  /// Closes a class as it stands, or discards changes. If that fails, the user is told and the work
  /// stays unfinished.
  std::function<void()> close;
};

/// Offers unfinished work: a single item in a box, several in one list, from which one after the
/// other can be taken up, closed or left for later. True once the forms of one are shown.
bool OfferUnfinished(Prompter& prompter, std::vector<Unfinished> all);

}  // namespace orvex
