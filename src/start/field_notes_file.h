#pragma once

#include <filesystem>

#include "store/services.h"

namespace orvex {

/// Lets the user choose a field-notes file, edit it and store it again.
void EditFieldNotesFile(const Services& services);
/// The same with the file at `path`.
void EditFieldNotes(const Services& services, const std::filesystem::path& path);

}  // namespace orvex
