#pragma once

#include <filesystem>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "recovery/unfinished.h"

namespace orvex {

/// Edits the field notes at a path, with the changes to them that were not saved.
using EditNotes = void (*)(const Services& services, const std::filesystem::path& path,
                           Unsaved unsaved);

/// The files with changes that were not saved when the program ended, and that are not open in
/// another Orvex: to take the changes up in the file's form, to discard them, or to leave them for
/// later. They are looked for in the data folder and in every folder that is remembered.
std::vector<Unfinished> UnsavedFiles(const Services& services, EditNotes editNotes);

}  // namespace orvex
