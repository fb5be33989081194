#include "reports/time_summary.h"

#include <cstddef>

#include "model/texts.h"
#include "model/time_of_day.h"
#include "model/wording.h"
#include "reports/episode_origin.h"
#include "store/numbers.h"

namespace orvex {
namespace {

/// The blocks, in the order of `ActivityGroup`.
constexpr std::array<std::string_view, kActivityGroupCount> kHeadings = {
    "CLASSROOM MANAGMENT", "DIRECT INSTRUCTION", "SEATWORK AND PAIRWORK", "TESTS AND QUIZZES"};

TimeSummaryRow MakeRow(const Activity& activity, double seconds, const OfftaskAverages& averages) {
  TimeSummaryRow row = {.activity = activity.number,
                        .name = activity.name,
                        .seconds = seconds,
                        .meanOfftask = {},
                        .time = FormatMinSec(seconds),
                        .offtask = ""};
  if (const auto position = OfftaskPosition(activity.number)) {
    row.meanOfftask = averages[*position];
    row.offtask = FormatPattern(*row.meanOfftask, "0.000");
  }
  return row;
}

}  // namespace

ActivityTimes CreateActTimeSummary(const EpisodeList& episodes) {
  ActivityTimes times{};
  for (const Episode& episode : episodes) AddTimes(episode.segments, times);
  return times;
}

TimeSummary MakeTimeSummary(const EpsHeader& header, const EpisodeList& episodes) {
  const Identity& identity = header.identity;
  TimeSummary summary;
  summary.classId = identity.ClassId();
  summary.title =
      Say(Text::timeSummaryTitle, {identity.SchoolNum, identity.ClassNum, identity.ObservNum});
  summary.date = DateText(header);
  summary.observer = ObserverText(header);
  for (std::size_t i = 0; i < kHeadings.size(); ++i) summary.blocks[i].heading = kHeadings[i];
  const ActivityTimes times = CreateActTimeSummary(episodes);
  for (const Activity& activity : kActivities) {
    const double seconds = times[static_cast<std::size_t>(activity.number - 1)];
    summary.blocks[static_cast<std::size_t>(activity.group)].rows.push_back(
        MakeRow(activity, seconds, header.ActivityOfftask));
    const bool isManagement = activity.group == ActivityGroup::management;
    (isManagement ? summary.nonInstructionalSeconds : summary.instructionalSeconds) += seconds;
  }
  for (double* seconds : {&summary.nonInstructionalSeconds, &summary.instructionalSeconds}) {
    *seconds = RoundHalfEven(*seconds);
  }
  summary.nonInstructional = FormatMinSec(summary.nonInstructionalSeconds);
  summary.instructional = FormatMinSec(summary.instructionalSeconds);
  summary.total = FormatMinSec(summary.nonInstructionalSeconds + summary.instructionalSeconds);
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
