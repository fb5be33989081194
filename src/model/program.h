#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "model/activities.h"
#include "model/episode.h"

namespace orvex {

/// The seven averages of an episode file's header, in the order of kOfftaskCategories.
using OfftaskAverages = std::array<float, kOfftaskCategories.size()>;

/// Every off-task estimate of an observation, by position in kOfftaskCategories.
using EstimatesByCategory = std::array<std::vector<float>, kOfftaskCategories.size()>;

/// What identifies an observation, as typed: the texts stay texts until they are normalised.
struct Identity {
  std::string Initials;
  std::string SchoolNum;
  std::string ClassNum;
  std::string ObservNum;
  std::string NumStudents;

  bool operator==(const Identity&) const = default;

  /// School, class and observation joined by "-": it names every file of the observation.
  std::string ClassId() const { return SchoolNum + "-" + ClassNum + "-" + ObservNum; }
};

/// The three numbers that name an observation, in order.
inline constexpr std::array kIdentityNumbers = {&Identity::SchoolNum, &Identity::ClassNum,
                                                &Identity::ObservNum};

/// The state that all activities share. One instance lives for the whole run.
struct Program {
  EpisodeList Episodes;  ///< the observation in memory
  std::filesystem::path DataPath;
  Identity identity;
  std::string StartTimeText;  ///< when the main menu was loaded, "hh:mm:ss"
  bool ClassStored = false;  ///< the observation has been ended, and its episodes are in their file
  /// Where the next search for an uncoded question starts, and where the last one stopped.
  int ProofEp = 0;
  int ProofQ = 0;
  EstimatesByCategory OfftaskByCat;

  OfftaskAverages AverageOfftask() const {
    OfftaskAverages averages{};
    for (std::size_t i = 0; i < averages.size(); ++i) averages[i] = AverageOf(OfftaskByCat[i]);
    return averages;
  }
};

}  // namespace orvex
