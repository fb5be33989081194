#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace orvex {

/// Something that a session log tells, and when it was.
struct LoggedEvent {
  std::optional<double> second;  ///< of the class; nothing where the log does not say
  std::size_t segment = 0;       ///< its position in the log; the last one may never have ended
};

/// A question when it was filed.
struct LoggedQuestion : LoggedEvent {
  std::string text;
};

/// An off-task estimate when it was entered.
struct LoggedEstimate : LoggedEvent {
  double share = 0;  ///< of the students; above 1 when more were off task than are present
  int activity = 0;
};

/// A segment when it ended.
struct LoggedSegment {
  double begin = 0;  ///< seconds of the class
  double end = 0;
  int activity = 0;   ///< may be none that is known
  double chosen = 0;  ///< the seconds from its begin until its activity was chosen, where known
  /// Nothing came between its begin and its end that moves the times at which estimates fall due.
  bool isSteady = true;

  double Length() const { return end - begin; }
};

/// What a session log says, in the order of its lines.
struct ClassLog {
  std::string initials;  ///< the observer's
  std::string date;      ///< "mm-dd-yyyy"; the log has two digits of the year
  std::string start;     ///< when the class began, "hh:mm:ss": the time of its first LOG ON
  bool ended = false;    ///< the log says LOG OFF

  std::optional<int> begin;  ///< `start` in seconds since midnight, where it is a time
  std::vector<LoggedQuestion> questions;
  std::vector<LoggedEstimate> estimates;
  std::vector<LoggedSegment> segments;  ///< as they were when the class was observed
};

/// Reads the text of a session log. Takes what it can of any text.
ClassLog ClassLogOf(std::string bytes);

/// A time of the log in a segment from `begin` to `end`. The log has whole seconds and segments
/// have rounded lengths, so a time may lie a little outside; it then counts as the nearest in the
/// segment. Nothing for any other time: the clock was set meanwhile, or the segment was moved.
std::optional<double> TimeWithin(double second, double begin, double end);

}  // namespace orvex
