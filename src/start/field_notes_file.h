#pragma once

#include <filesystem>

#include "desk/screens.h"
#include "desk/services.h"

namespace orvex {

/// The main menu's command: lets the user choose a field-notes file and edit it.
void EditChosenNotes(const Services& services);
/// Lets the user edit the field notes at `path` and save them. Unsaved changes appear in the dialog
/// when they are taken up.
void EditFieldNotes(const Services& services, const std::filesystem::path& path,
                    Kept kept = Kept::areOffered);

}  // namespace orvex
