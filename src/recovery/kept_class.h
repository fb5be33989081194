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
  std::int64_t unixSeconds = 0;    ///< since 1970, wherever clocks were set to
};

/// A class as it was kept while it ran: all that is needed to go on with it, or to store it.
struct KeptClass {
  Program program;  ///< the observation, its identity and estimates; no folder
  RunningClass running;
  KeptMoment moment;
  std::uint64_t number = 0;  ///< the number of this content, to go on counting from

  /// The running segment, in so far as it has an activity, has been ended: the class was about to
  /// be stored.
  bool SegmentEnded() const;
  /// The number of questions in all episodes.
  std::size_t Questions() const;
};

/// The lines of a kept class that change with it, and those that change with time.
std::string FormatRunning(const Program& program, const RunningClass& running);
std::string FormatMoment(const KeptMoment& moment);

/// Reads what FormatMoment and FormatRunning wrote, one behind the other. Throws FormatError, also
/// for values that no class can have.
KeptClass ParseKept(const std::string& content);
/// The same from the recovery file at `path`. The identity is the one that the class's log bears,
/// also where the class was just being renamed. Throws FileError as well.
KeptClass ReadKeptClass(const std::filesystem::path& path);

/// Has the running class kept in the recovery file whenever it has changed, and what was logged of
/// it written behind that: whenever the program ends, the class has all that its log has.
class ClassKeeper {
 public:
  /// Hands the class over if it is not the one handed over last. Even then once in ten seconds, so
  /// that it is known until when the class ran.
  void Keep(const Services& services, const RunningClass& running);
  /// True once the class was handed over.
  bool HasBegun() const { return !kept_.empty(); }

 private:
  void HandOver(const Services& services, const RunningClass& running);

  std::string kept_;
  std::int64_t keptAt_ = 0;  ///< in seconds since 1970
};

/// All of the class is stored: removes what was kept of it while it ran.
void ForgetKept(const Services& services);

}  // namespace orvex
