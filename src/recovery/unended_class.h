#pragma once

#include <filesystem>
#include <vector>

#include "desk/services.h"
#include "recovery/unfinished.h"

namespace orvex {

/// The classes that were not ended and do not run in another Orvex: to go on observing, to close
/// into their files as they stand, or to leave for later. They are looked for in the data folder
/// and in every folder that is remembered. The user is told of those that cannot be read.
std::vector<Unfinished> UnendedClasses(const Services& services);

/// The same for the class kept at `path`, if there is one.
std::vector<Unfinished> UnendedClassAt(const Services& services, const std::filesystem::path& path);

}  // namespace orvex
