#pragma once

#include <vector>

#include "store/services.h"
#include "store/unfinished.h"

namespace orvex {

/// The files with changes that were not saved when the program ended, and that are not open in
/// another Orvex: to take the changes up in the file's form, to discard them, or to leave them for
/// later. They are looked for in the data folder and in every folder that is remembered.
std::vector<Unfinished> UnsavedFiles(const Services& services);

}  // namespace orvex
