#pragma once

#include <filesystem>
#include <string>

namespace orvex {

class Storage;

/// The name of a temporary of this process, ".orvex-PID-NUMBER.tmp": what a file gathers in before
/// it takes its place.
std::string TemporaryName(int number);

/// Removes from `folder` the temporaries of processes that were killed. They are a day old: whose
/// process lives on another machine that shares the folder cannot be seen from here, and the clocks
/// of two machines, or of a stick, may be some hours apart.
void RemoveStrayTemporaries(Storage& storage, const std::filesystem::path& folder);

}  // namespace orvex
