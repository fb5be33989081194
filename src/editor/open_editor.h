#pragma once

#include "desk/services.h"

namespace orvex {

/// The main menu's command: lets the user choose an episode file and opens the episode editor with
/// it in place of the menu. False when that did not come about.
bool OpenEpisodeFile(const Services& services);

}  // namespace orvex
