#include "tables/observation_json.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "model/episode.h"
#include "model/validation.h"
#include "model/wording.h"
#include "reports/question_plot.h"
#include "reports/time_summary.h"
#include "store/numbers.h"
#include "store/text_encoding.h"
#include "tables/json.h"
#include "tables/statistics_json.h"

namespace orvex {
namespace {

void AddHeader(const EpsObservation& observation, Json& json) {
  const EpsHeader& header = observation.header;
  const Identity& identity = header.identity;
  json.Key("header").BeginObject();
  json.Key("SchoolNum").Text(identity.SchoolNum);
  json.Key("ClassNum").Text(identity.ClassNum);
  json.Key("ObservNum").Text(identity.ObservNum);
  json.Key("NumStudents").Text(identity.NumStudents);
  json.Key("Initials").Text(identity.Initials);
  json.Key("ObservDate").Text(header.ObservDate);
  json.Key("StartTime").Text(header.StartTime);
  json.Key("episodes").Number(std::int64_t{std::ssize(observation.Episodes)});
  json.Key("averages").BeginArray();
  for (const float average : header.ActivityOfftask) json.Text(PrintDigits(average));
  json.EndArray().EndObject();
}

/// A segment's numbers are those of its line in the file.
void AddSegment(const SegmentData& segment, Json& json) {
  const int activity = segment.activityNum;
  json.BeginObject().Key("numbers").BeginArray().Number(std::int64_t{activity});
  json.Seconds(static_cast<double>(segment.duration));
  for (const SubCode code : ActivityOf(activity).subCodes) {
    json.Number(std::int64_t{segment.*SchemeOf(code).stored});
  }
  json.EndArray().Key("about").Text(segment.aboutdata).EndObject();
}

void AddQuestion(const questionInfo& question, Json& json) {
  json.BeginObject();
  json.Key("text").Text(question.question);
  json.Key("name").Text(question.respondName);
  json.Key("segment").Number(std::int64_t{question.iSgQ});
  json.Key("letters").BeginArray();
  for (const Dimension dimension : kLetteredDimensions) json.Text(question.Text(dimension));
  json.EndArray().EndObject();
}

void AddPlot(const QuestionPlot& plot, Json& json) {
  json.Key("plot").BeginObject();
  for (std::size_t row = 0; row < kPlotRows; ++row) {
    json.Key(std::to_string(row)).Text(plot.PlotRows[row]);
  }
  json.EndObject();
}

void AddEpisode(const Identity& identity, int number, const Episode& episode, Json& json) {
  json.BeginObject();
  json.Key("description").Text(episode.Descript);
  json.Key("review").Text(episode.bReview);
  json.Key("label").Text(ActivityLabel(episode));
  json.Key("duration").Seconds(episode.duration());
  json.Key("durationWords").Text(DurationInWords(episode.duration()));
  json.Key("segments").BeginArray();
  for (const SegmentData& segment : episode.segments) AddSegment(segment, json);
  json.EndArray().Key("questions").BeginArray();
  for (const questionInfo& question : episode.questions) AddQuestion(question, json);
  json.EndArray();
  json.Key("offtask").Text(PrintDigits(episode.offtask));
  json.Key("offtaskExport").Text(FormatPattern(episode.offtask, "0.#######"));
  json.Key("spells").BeginArray();
  for (const DialogicSpell& spell : FindDialogicSpells(episode.questions)) {
    json.BeginArray().Number(std::int64_t{spell.first}).Number(std::int64_t{spell.last}).EndArray();
  }
  json.EndArray().Key("summaryCounts").BeginArray();
  const QuestionCounts counts = EpisodeQuestionCounts(episode);
  for (const auto count : kQuestionCounts) json.Number(std::int64_t{counts.*count});
  json.EndArray();
  AddStatistics(MakeQuestionStatistics(identity, number, episode), json);
  AddPlot(MakeQuestionPlot(identity, number, episode), json);
  json.EndObject();
}

void AddTimeSummary(const TimeSummary& summary, Json& json) {
  std::vector<std::pair<int, const TimeSummaryRow*>> rows;  // with the number of their block
  for (std::size_t block = 0; block < summary.blocks.size(); ++block) {
    for (const TimeSummaryRow& row : summary.blocks[block].rows) {
      rows.emplace_back(static_cast<int>(block + 1), &row);
    }
  }
  std::ranges::sort(rows, {}, [](const auto& row) { return row.second->activity; });
  json.Key("timeSummary").BeginObject().Key("Label53").Text(summary.title);
  json.Key("rows").BeginArray();
  for (const auto& [block, row] : rows) {
    json.BeginArray().Number(std::int64_t{block}).Number(std::int64_t{row->activity});
    json.Text(row->name).Text(row->time).Text(row->offtask).EndArray();
  }
  json.EndArray();
  json.Key("nonInstructional").Text(summary.nonInstructional);
  json.Key("instructional").Text(summary.instructional);
  json.Key("total").Text(summary.total).EndObject();
}

/// A question that is not fully coded: its episode, its number, what is missing.
struct Uncoded {
  std::size_t ep = 0;
  std::size_t q = 0;
  MissingCodes missing;
};

void AddUncoded(const EpisodeList& episodes, Json& json) {
  std::vector<Uncoded> uncoded;
  for (std::size_t ep = 0; ep < episodes.size(); ++ep) {
    const auto& questions = episodes[ep].questions;
    for (std::size_t q = 0; q < questions.size(); ++q) {
      MissingCodes missing = FindMissingCodes(questions[q]);
      if (!missing.None()) uncoded.push_back({ep + 1, q + 1, std::move(missing)});
    }
  }
  const auto place = [&json](const Uncoded& question) {
    json.Number(static_cast<std::int64_t>(question.ep));
    json.Number(static_cast<std::int64_t>(question.q));
  };
  json.Key("firstUncoded").BeginArray().Number(std::int64_t{uncoded.empty() ? -1 : 1});
  if (!uncoded.empty()) place(uncoded.front());
  json.EndArray().Key("uncoded").BeginArray();
  for (const Uncoded& question : uncoded) {
    json.BeginArray();
    place(question);
    json.BeginArray();
    if (question.missing.text) json.Text("question");
    for (const Dimension dimension : question.missing.dimensions) {
      json.Text(SchemeOf(dimension).field);
    }
    json.EndArray().EndArray();
  }
  json.EndArray();
}

void AddSurvey(const SurFile& survey, Json& json) {
  json.BeginObject();
  json.Key("SchoolNum").Text(survey.identity.SchoolNum);
  json.Key("ClassNum").Text(survey.identity.ClassNum);
  json.Key("ObservNum").Text(survey.identity.ObservNum);
  json.Key("checks").BeginArray();
  for (const auto& group : survey.answers.checks) {
    json.BeginArray();
    for (std::size_t item = 0; item < group.size(); ++item) {
      if (group.test(item)) json.Number(static_cast<std::int64_t>(item));
    }
    json.EndArray();
  }
  json.EndArray().Key("other").Text(survey.answers.other).Key("ratings").BeginArray();
  for (const std::int16_t rating : survey.answers.ratings) {
    rating == kUncoded ? json.Null() : json.Number(std::int64_t{rating});
  }
  json.EndArray().EndObject();
}

}  // namespace

std::string ObservationJson(const std::filesystem::path& file, const EpsObservation& observation,
                            const std::optional<SurFile>& survey) {
  std::string text;
  Json json(text);
  json.BeginObject().Key("file").Text(Decode(file.string()).text);
  AddHeader(observation, json);
  json.Key("episodes").BeginArray();
  int number = 0;
  for (const Episode& episode : observation.Episodes) {
    AddEpisode(observation.header.identity, ++number, episode, json);
  }
  json.EndArray();
  AddTimeSummary(MakeTimeSummary(observation.header, observation.Episodes), json);
  AddUncoded(observation.Episodes, json);
  json.Key("survey");
  if (survey) {
    AddSurvey(*survey, json);
  } else {
    json.Null();
  }
  json.EndObject();
  return text;
}

}  // namespace orvex
