#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "model/activities.h"
#include "reports/class_log.h"

namespace orvex {

/// What a session log says that no other file of the observation does.
struct LogFacts {
  std::string initials;  ///< the observer's
  std::string date;      ///< "mm-dd-yyyy"; the log has two digits of the year
  std::string start;     ///< when the class began, "hh:mm:ss": the time of its first LOG ON
  bool ended = false;    ///< the log says LOG OFF
  /// The number of off-task estimates, by position in kOfftaskCategories.
  std::array<int, kOfftaskCategories.size()> estimates{};

  int Estimates() const;
};

LogFacts FactsOf(const ClassLog& log);

// These read a session log, and return nothing when the file is not there, cannot be read or is no
// session log.

std::optional<ClassLog> ReadClassLog(const std::filesystem::path& path);
std::optional<LogFacts> ReadLogFacts(const std::filesystem::path& path);
/// Reads no more of a session log than says who began it and when.
std::optional<ClassLog> ReadLogStart(const std::filesystem::path& path);

/// What keeps a log that was read as above from placing anything in time; "" if nothing does.
std::string_view TroubleOf(const std::optional<ClassLog>& log);

}  // namespace orvex
