#pragma once

#include <filesystem>

#include "desk/services.h"

namespace orvex {

struct KeptClass;

/// Stores a class that was not ended as it stands: the running segment as long as it is known to
/// have lasted, the question that was being entered (of which the user is told), the notes, and the
/// survey as far as it was filled in. What is kept at `path` goes when all of that is stored. False
/// when the user gave up.
bool CloseKeptClass(const Services& desk, KeptClass kept, const std::filesystem::path& path);

}  // namespace orvex
