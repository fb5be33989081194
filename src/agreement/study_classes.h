#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "study/class_key.h"

namespace orvex {

/// The files without those that are the same as an earlier one, by whatever path.
std::vector<std::filesystem::path> WithoutRepeats(const std::vector<std::filesystem::path>& files);

/// An observation, as far as it says which class it is of and whose it is.
struct FoundObservation {
  std::filesystem::path file;
  ClassKey ofClass;
  std::string number;    ///< key of the observation number
  std::string observer;  ///< ObserverKey
};
/// Reads that of an episode file. Throws FileError and FormatError.
FoundObservation FindObservation(const std::filesystem::path& file);

/// The episode files of one class, of which every two are a pair, the lower observation number
/// first.
using ClassFiles = std::vector<std::filesystem::path>;
/// The classes of which there is more than one observation. Of observations with one number by one
/// observer only the first counts. `remarks` gets sentences on what is left out.
std::vector<ClassFiles> ClassesOf(std::vector<FoundObservation> found,
                                  std::vector<std::string>& remarks);

}  // namespace orvex
