#include "reports/time_summary.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "model/time_of_day.h"
#include "reports/episode_origin.h"
#include "store/numbers.h"

namespace orvex {
namespace {

constexpr double kSecondsPerMinute = 60;

/// The activities that the header's off-task figures are about, in the order of the figures.
constexpr std::array<int, kOfftaskCategories.size()> kOfftaskActivities = {4, 14, 15, 16, 5, 8, 17};

/// The first and the last activity of each block.
struct BlockRule {
  std::string_view heading;
  int first;
  int last;
};
constexpr std::array<BlockRule, 4> kBlocks = {{
    {"CLASSROOM MANAGMENT", 1, 3},
    {"DIRECT INSTRUCTION", 4, 12},
    {"SEATWORK AND PAIRWORK", 14, 17},
    {"TESTS AND QUIZZES", 13, 13},
}};
constexpr int kLastNonInstructional = 3;

std::string OfftaskText(const OfftaskAverages& averages, int activity) {
  const auto found = std::ranges::find(kOfftaskActivities, activity);
  if (found == kOfftaskActivities.end()) return "";
  const auto position = static_cast<std::size_t>(found - kOfftaskActivities.begin());
  return FormatPattern(averages[position], "0.000");
}

TimeSummaryBlock MakeBlock(const BlockRule& rule, const ActivityTimes& times,
                           const OfftaskAverages& averages) {
  TimeSummaryBlock block{rule.heading, {}};
  for (int activity = rule.first; activity <= rule.last; ++activity) {
    const auto position = static_cast<std::size_t>(activity - 1);
    block.rows.push_back({activity, ActivityTexts[position], FormatMinSec(times[position]),
                          OfftaskText(averages, activity)});
  }
  return block;
}

}  // namespace

ActivityTimes CreateActTimeSummary(const EpisodeList& episodes) {
  ActivityTimes times{};
  for (const Episode& episode : episodes) {
    for (const SegmentData& segment : episode.segments) {
      if (!IsActivity(segment.activityNum)) continue;
      times[static_cast<std::size_t>(segment.activityNum - 1)] +=
          static_cast<double>(segment.duration);
    }
  }
  return times;
}

std::string FormatMinSec(double seconds) {
  const double whole = RoundHalfEven(seconds);
  const double length = std::abs(whole);
  return (whole < 0 ? "-" : "") + FormatPattern(std::floor(length / kSecondsPerMinute), "##0") +
         ":" + FormatPattern(std::fmod(length, kSecondsPerMinute), "00");
}

TimeSummary MakeTimeSummary(const EpsHeader& header, const EpisodeList& episodes) {
  const Identity& identity = header.identity;
  TimeSummary summary;
  summary.classId = identity.ClassId();
  summary.title = "Time Summary for School " + identity.SchoolNum + ", Class " + identity.ClassNum +
                  ", Observation " + identity.ObservNum;
  summary.date = DateText(header);
  summary.observer = ObserverText(header);
  const ActivityTimes times = CreateActTimeSummary(episodes);
  for (std::size_t i = 0; i < kBlocks.size(); ++i) {
    summary.blocks[i] = MakeBlock(kBlocks[i], times, header.ActivityOfftask);
  }
  const auto instruction = times.begin() + kLastNonInstructional;
  const double nonInstructional = RoundHalfEven(std::accumulate(times.begin(), instruction, 0.0));
  const double instructional = RoundHalfEven(std::accumulate(instruction, times.end(), 0.0));
  summary.nonInstructional = FormatMinSec(nonInstructional);
  summary.instructional = FormatMinSec(instructional);
  summary.total = FormatMinSec(nonInstructional + instructional);
  return summary;
}

std::string TextOf(const TimeSummary& summary) {
  std::string text = summary.title + "\n" + summary.date + "\n" + summary.observer + "\n";
  const auto line = [&text](std::string_view first, std::string_view second,
                            std::string_view third) {
    text.append(first).append("\t").append(second).append("\t").append(third).append("\n");
  };
  for (const TimeSummaryBlock& block : summary.blocks) {
    text += "\n";
    line(block.heading, kTimeColumn, kOfftaskColumn);
    for (const TimeSummaryRow& row : block.rows) line(row.name, row.time, row.offtask);
  }
  const auto total = [&text](std::string_view caption, std::string_view value) {
    text.append(WithoutBlanks(caption)).append("\t").append(value).append("\n");
  };
  text += "\n";
  total(kNonInstructionalCaption, summary.nonInstructional);
  total(kInstructionalCaption, summary.instructional);
  total(kTotalCaption, summary.total);
  return text;
}

}  // namespace orvex
