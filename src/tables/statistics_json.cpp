#include "tables/statistics_json.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "tables/code_counts.h"

namespace orvex {
namespace {

/// The names of the lines, in the order of `StatisticsLine`.
constexpr std::array<std::string_view, kStatisticsLines> kLineNames = {"total",
                                                                       "normal",
                                                                       "source",
                                                                       "authentic_teacher",
                                                                       "authentic_student",
                                                                       "higher_level",
                                                                       "no_response",
                                                                       "uptake",
                                                                       "elaborated",
                                                                       "teacher_response",
                                                                       "related_to_previous"};

std::string_view NameOf(BarMeaning meaning) {
  switch (meaning) {
    case BarMeaning::positive:
      return "positive";
    case BarMeaning::no:
      return "no";
    case BarMeaning::negative:
      return "negative";
    case BarMeaning::uncoded:
      return "uncoded";
    case BarMeaning::none:
      break;
  }
  return "none";
}

void AddLine(std::string_view name, const StatisticsRow& row, Json& json) {
  json.BeginObject().Key("line").Text(name).Key("heading").Text(row.heading);
  json.Key("bar").BeginArray();
  for (const BarSegment& segment : row.bar) {
    json.BeginObject().Key("count").Number(std::int64_t{segment.count});
    json.Key("of").Number(std::int64_t{segment.reference});
    json.Key("start").Number(segment.left / kBarLength);
    json.Key("share").Number(segment.width / kBarLength);
    json.Key("meaning").Text(NameOf(segment.meaning)).EndObject();
  }
  json.EndArray().EndObject();
}

}  // namespace

void AddStatistics(const QuestionStatistics& statistics, Json& json) {
  json.Key("statistics");
  if (statistics.counts.Total == 0) {
    json.Null();
    return;
  }
  json.BeginObject().Key("counts").BeginObject();
  for (const CodeCountScheme& scheme : kCodeCounts) {
    json.Key(scheme.key).Number(std::int64_t{statistics.counts.*scheme.count});
  }
  json.EndObject().Key("lines").BeginArray();
  for (std::size_t line = 0; line < kLineNames.size(); ++line) {
    AddLine(kLineNames[line], statistics.rows[line], json);
  }
  json.EndArray().Key("questions_per_minute");
  const auto& pace = statistics.questionsPerMinute;
  pace ? json.Number(*pace) : json.Null();
  json.EndObject();
}

}  // namespace orvex
