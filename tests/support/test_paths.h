#pragma once

#include <filesystem>

namespace orvex::test {

/// The folders of the source tree and of the sample files next to the tests. Only one source file
/// contains these paths, so that all others compile identically in every checkout.
std::filesystem::path SourceFolder();
std::filesystem::path TestDataFolder();

}  // namespace orvex::test
