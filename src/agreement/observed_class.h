#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/survey.h"
#include "store/eps_file.h"
#include "study/problem.h"

namespace orvex {

/// A class as one observer wrote it down.
struct ObservedClass {
  std::filesystem::path file = {};  ///< its episode file
  EpsObservation observation = {};
  std::optional<Survey> survey = {};
  std::optional<int> logStart = {};  ///< when its session log began, in seconds since midnight
  std::optional<std::chrono::sys_days> logDay = {};  ///< the day of that, if the log states one
  std::vector<std::string> notes = {};        ///< sentences about what was doubtful in its files
  std::optional<Problem> surveyProblem = {};  ///< why its survey could not be read

  /// The file's name without its folder, "5-12-3.eps". UTF-8.
  std::string Name() const;
};

/// Reads an episode file with the survey and the session log that belong to it. Throws FileError
/// and FormatError when the episode file cannot be read; what is wrong with the others is noted.
ObservedClass ReadObservedClass(const std::filesystem::path& file);

}  // namespace orvex
