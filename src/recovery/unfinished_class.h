#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "desk/services.h"
#include "recovery/unfinished.h"

namespace orvex {

struct KeptClass;

/// The classes that were not ended and are not running in another Orvex. Each can be taken up,
/// closed into its files as it stands, or left for later. Searches the data folder and every
/// remembered folder. Tells the user about classes that cannot be read.
std::vector<Unfinished> UnfinishedClasses(const Services& services);

/// The unfinished class kept at `path`, in a list of one; an empty list when there is none.
std::vector<Unfinished> UnfinishedClassAt(const Services& services,
                                          const std::filesystem::path& path);

/// What is to be said of a class that was not ended: "Class 5-12-3 of 03-02-2026 was not ended. It
/// was observed from 09:05:12 to 09:47:10: 3 episodes, 14 questions."
std::string TextOf(const KeptClass& kept);

/// Closes a class that was not ended by storing it as it stands: the running segment up to when the
/// class was last kept, the question that was being entered (the user is told about it), the notes,
/// and the survey as far as it was filled in. Removes what is kept at `path` once all of that is
/// stored. False when the class could not be closed, or the user gave up.
bool CloseKeptClass(const Services& desk, KeptClass kept, const std::filesystem::path& path);

}  // namespace orvex
