#pragma once

#include <filesystem>

#include "desk/screens.h"
#include "desk/services.h"

namespace orvex {

/// The main menu's command: lets the user choose a field-notes file, edit it and store it again.
void EditChosenNotes(const Services& services);
/// Lets the user edit the field notes at `path` and store them again. Changes that were not saved
/// are in the dialog, when the user takes them up.
void EditFieldNotes(const Services& services, const std::filesystem::path& path,
                    Kept kept = Kept::areOffered);

}  // namespace orvex
