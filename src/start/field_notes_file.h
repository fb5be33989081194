#pragma once

#include "store/services.h"

namespace orvex {

/// Lets the user choose a field-notes file, edit it and store it again.
void EditFieldNotesFile(const Services& services);

}  // namespace orvex
