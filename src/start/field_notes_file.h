#pragma once

#include <filesystem>

#include "desk/screens.h"
#include "desk/services.h"

namespace orvex {

/// Lets the user choose a field-notes file, edit it and store it again.
void EditFieldNotesFile(const Services& services);
/// The same with the file at `path`. Changes that were not saved are in the dialog, when the user
/// takes them up.
void EditFieldNotes(const Services& services, const std::filesystem::path& path,
                    Kept kept = Kept::areOffered);

}  // namespace orvex
