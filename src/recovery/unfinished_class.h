#pragma once

#include <filesystem>
#include <vector>

#include "desk/services.h"
#include "recovery/unfinished.h"

namespace orvex {

struct KeptClass;

/// The classes that were not ended and do not run in another Orvex: to take up, to close into their
/// files as they stand, or to leave for later. They are looked for in the data folder
/// and in every folder that is remembered. The user is told of those that cannot be read.
std::vector<Unfinished> UnfinishedClasses(const Services& services);

/// The same for the class kept at `path`, if there is one.
std::vector<Unfinished> UnfinishedClassAt(const Services& services,
                                          const std::filesystem::path& path);

/// Stores a class that was not ended as it stands: the running segment as long as it is known to
/// have lasted, the question that was being entered (of which the user is told), the notes, and the
/// survey as far as it was filled in. What is kept at `path` goes when all of that is stored. False
/// when the user gave up.
bool CloseKeptClass(const Services& desk, KeptClass kept, const std::filesystem::path& path);

}  // namespace orvex
