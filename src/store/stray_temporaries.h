#pragma once

#include <filesystem>
#include <string>

namespace orvex {

class Storage;

/// The name of a temporary of this process, ".orvex-PID-NUMBER.tmp". New content gathers there
/// before it takes a file's place.
std::string TemporaryName(int number);

/// Removes from `folder` temporaries that killed processes left more than a day ago. The day is for
/// safety: a process on another machine that shares the folder cannot be seen from here, and the
/// clocks of two machines, or of a stick, may differ by some hours.
void RemoveStrayTemporaries(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
