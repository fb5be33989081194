#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "desk/services.h"
#include "model/program.h"
#include "running/running_class.h"

namespace orvex {

/// When a class was last kept.
struct KeptMoment {
  std::string dateText;            ///< "mm-dd-yyyy"
  std::string timeText;            ///< "hh:mm:ss"
  float secondsSinceMidnight = 0;  ///< by the clock of the class
  std::int64_t unixSeconds = 0;    ///< since 1970, by the system's clock
};

/// A class as it was kept while it ran: everything that is needed to go on with it, or to store it.
struct KeptClass {
  Program program;  ///< the observation, its identity and its estimates, but no data folder
  RunningClass running;
  KeptMoment moment;
  std::uint64_t number = 0;  ///< this content's number, to continue counting from

  /// True when the running segment has been ended and is among its episode's segments: the class
  /// was about to be stored.
  bool SegmentEnded() const;
  /// The number of questions in all episodes.
  std::size_t Questions() const;
};

/// The lines of a kept class that change with the class, and those that change with time.
std::string FormatRunning(const Program& program, const RunningClass& running);
std::string FormatMoment(const KeptMoment& moment);

/// Reads the lines of FormatMoment, followed by those of FormatRunning. Throws FormatError, also
/// for values that no class can have.
KeptClass ParseKept(const std::string& content);
/// Reads the class that is kept at `path`. Its identity is the one that its log is named after,
/// even if the class was just being renamed. Throws FileError and FormatError.
KeptClass ReadKeptClass(const std::filesystem::path& path);

/// Keeps the running class in the recovery file whenever it has changed, and lets its log entries
/// be written only after that. However the program ends, the kept class has everything that its log
/// has.
class ClassKeeper {
 public:
  /// Hands the class over if it has changed since the last time, and otherwise once in ten seconds,
  /// so that it is known until when the class ran.
  void Keep(const Services& services, const RunningClass& running);
  /// True once the class has been handed over.
  bool HasBegun() const { return !kept_.empty(); }

 private:
  void HandOver(const Services& services, const RunningClass& running);

  std::string kept_;
  std::int64_t keptAt_ = 0;  ///< in seconds since 1970
};

/// Removes what was kept of the class while it ran. To be called when all of it is stored. Tells
/// the user if that fails.
void ForgetKept(const Services& services);

}  // namespace orvex
