#pragma once

#include <filesystem>

namespace orvex::test {

/// The folders of the source tree and of the sample files beside the tests. Their names are
/// compiled in one place alone: the rest compiles the same in every checkout.
std::filesystem::path SourceFolder();
std::filesystem::path TestDataFolder();

}  // namespace orvex::test
