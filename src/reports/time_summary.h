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

/// Adds up the segments of all episodes. Those of no activity count nowhere.
ActivityTimes CreateActTimeSummary(const EpisodeList& episodes);

/// An activity's line.
struct TimeSummaryRow {
  int activity = 0;
  std::string_view name;
  double seconds = 0;
  std::optional<float> meanOfftask;  ///< 0 to 1; nothing for an activity without estimates
  std::string time;
  std::string offtask;  ///< "0.059"; nothing for an activity that no estimates are made of
};

struct TimeSummaryBlock {
  std::string_view heading;
  std::vector<TimeSummaryRow> rows;
};
/// What stands over the second and third column of every block.
inline constexpr std::string_view kTimeColumn = "MIN:SEC";
inline constexpr std::string_view kOfftaskColumn = "OFFTASK";

/// How long a class spent in what.
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

/// The summary of the observation in memory; the off-task figures are those of its file's header.
TimeSummary MakeTimeSummary(const EpsHeader& header, const EpisodeList& episodes);

/// The same as lines of tab-separated fields.
std::string TextOf(const TimeSummary& summary);

}  // namespace orvex
