#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/activities.h"
#include "model/episode.h"
#include "store/eps_file.h"

namespace orvex {

/// Adds up the time of all segments by activity. Segments without an activity are not counted.
ActivityTimes CreateActTimeSummary(const EpisodeList& episodes);

/// An activity's line.
struct TimeSummaryRow {
  int activity = 0;
  std::string_view name;
  double seconds = 0;
  std::optional<float> meanOfftask;  ///< 0 to 1; nothing for an activity without estimates
  std::string time;
  std::string offtask;  ///< "0.059"; empty for an activity that is never estimated
};

struct TimeSummaryBlock {
  std::string_view heading;
  std::vector<TimeSummaryRow> rows;
};
/// The headings of the second and third column of every block.
inline constexpr std::string_view kTimeColumn = "MIN:SEC";
inline constexpr std::string_view kOfftaskColumn = "OFFTASK";

/// How long a class spent on each activity.
struct TimeSummary {
  std::string classId;   ///< "7-12-3"
  std::string title;     ///< "Time Summary for School 7, Class 12, Observation 3"
  std::string date;      ///< "Date of Observation: 03-14-2001"
  std::string observer;  ///< "Observer: AB"
  std::array<TimeSummaryBlock, kActivityGroupCount> blocks;
  double nonInstructionalSeconds = 0;  ///< whole ones
  double instructionalSeconds = 0;     ///< whole ones
  /// The totals, and what they are called.
  std::string nonInstructional;
  std::string instructional;
  std::string total;
};
inline constexpr std::string_view kNonInstructionalCaption = "NON-INSTRUCTIONAL TIME: ";
inline constexpr std::string_view kInstructionalCaption = "SUMMARY: INSTRUCTIONALTIME: ";
inline constexpr std::string_view kTotalCaption = "TOTAL TIME: ";

/// Summarizes the given episodes. The off-task figures come from the file's header.
TimeSummary MakeTimeSummary(const EpsHeader& header, const EpisodeList& episodes);

/// The summary as lines of tab-separated fields.
std::string TextOf(const TimeSummary& summary);

}  // namespace orvex
