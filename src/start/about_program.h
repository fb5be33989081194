#pragma once

#include <filesystem>
#include <string>

#include "desk/services.h"

namespace orvex {

/// What the program says of itself.
struct ProgramFacts {
  std::string product;  ///< "Orvex 4.10"
  std::string purpose;
  std::string copyright;
  std::string version;  ///< "4.1.0"
  std::string licence;
  std::string dataFolder;
  std::string programFolder;  ///< where it remembers its own things
  std::string manual;         ///< the folder of the manual, or that it was not found
};

ProgramFacts AboutProgram(const Services& services, const std::filesystem::path& manualFolder);

}  // namespace orvex
