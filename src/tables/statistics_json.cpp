#include "tables/statistics_json.h"

#include <array>
#include <string_view>
#include <utility>

namespace orvex {
namespace {

using Line = StatisticsLine;
using Named = std::pair<std::string_view, Line>;

constexpr std::array<Named, 6> kCounts = {{{"0", Line::total},
                                           {"6", Line::authenticTeacher},
                                           {"7", Line::authenticStudent},
                                           {"8", Line::higherLevel},
                                           {"11", Line::nonresponse},
                                           {"4", Line::relatedToPrevious}}};
constexpr std::array<Named, 4> kHeadings = {{{"Label31", Line::source},
                                             {"Label19", Line::uptake},
                                             {"Label6", Line::elaborated},
                                             {"Label9", Line::teacherResponse}}};
constexpr std::array<Named, 10> kBars = {{{"Normal", Line::normal},
                                          {"Source", Line::source},
                                          {"AuthTQ", Line::authenticTeacher},
                                          {"AuthSQ", Line::authenticStudent},
                                          {"HLevQ", Line::higherLevel},
                                          {"NoRespT", Line::nonresponse},
                                          {"Uptake1", Line::uptake},
                                          {"ELAB", Line::elaborated},
                                          {"TResponse1", Line::teacherResponse},
                                          {"PFMany", Line::relatedToPrevious}}};

void AddCounts(const CodeCounts& counts, Json& json) {
  const std::array<std::pair<std::string_view, int>, 18> named = {{
      {"Total", counts.Total},
      {"Normal", counts.Normal},
      {"TeacherQ", counts.TeacherQ},
      {"StudentQ", counts.StudentQ},
      {"AuthTeacher", counts.AuthTeacher},
      {"AuthStudent", counts.AuthStudent},
      {"NoResponse", counts.NoResponse},
      {"HigherLevel", counts.HigherLevel},
      {"RelatedToPrevious", counts.RelatedToPrevious},
      {"Answering", counts.Answering},
      {"ClosingDown", counts.ClosingDown},
      {"OpeningUp", counts.OpeningUp},
      {"Responded", counts.Responded},
      {"UptakeNone", counts.UptakeNone},
      {"UptakeTest", counts.UptakeTest},
      {"UptakeAuthentic", counts.UptakeAuthentic},
      {"Elaborated", counts.Elaborated},
      {"Unelaborated", counts.Unelaborated},
  }};
  json.Key("counts").BeginObject();
  for (const auto& [name, count] : named) json.Key(name).Number(std::int64_t{count});
  json.EndObject();
}

/// What is left of the bar of the nonresponses is a control of its own.
void AddBars(const QuestionStatistics& statistics, Json& json) {
  json.Key("bars").BeginObject();
  for (const auto& [name, line] : kBars) {
    json.Key(name).BeginArray();
    const auto& bar = statistics.Row(line).bar;
    const std::size_t shown = line == Line::nonresponse ? 1 : bar.size();
    for (std::size_t i = 0; i < shown; ++i) {
      json.BeginArray().Number(bar[i].left).Number(bar[i].width).Text(bar[i].caption).EndArray();
    }
    json.EndArray();
  }
  json.EndObject();
  const BarSegment& rest = statistics.Row(Line::nonresponse).bar.at(1);
  json.Key("NoRespT1").BeginObject().Key("yellow").Bool(rest.meaning == BarMeaning::no);
  json.Key("caption").Text(rest.caption).EndObject();
}

}  // namespace

void AddStatistics(const QuestionStatistics& statistics, Json& json) {
  json.Key("statistics").BeginObject().Key("Label14").Text(statistics.title);
  const bool any = statistics.counts.Total > 0;
  json.Key("Label1").BeginObject();
  for (const auto& [index, line] : kCounts) {
    if (any || line == Line::authenticTeacher) json.Key(index).Text(statistics.Row(line).count);
  }
  json.EndObject().Key("messages").BeginArray();
  if (!statistics.message.empty()) json.Text(statistics.message);
  json.EndArray();
  if (any) {
    AddCounts(statistics.counts, json);
    for (const auto& [label, line] : kHeadings) {
      json.Key(label).Text(statistics.Row(line).heading);
    }
    AddBars(statistics, json);
    if (!statistics.pace.empty()) json.Key("Label13").Text(statistics.pace);
    if (!statistics.offtask.empty()) json.Key("Label15").Text(statistics.offtask);
  }
  json.EndObject();
}

}  // namespace orvex
