#include "tables/observation_json.h"

#include <cstddef>
#include <span>
#include <vector>

#include "model/activities.h"
#include "model/validation.h"
#include "reports/question_plot.h"
#include "reports/time_summary.h"
#include "store/eps_writer.h"
#include "tables/csv.h"
#include "tables/json.h"
#include "tables/statistics_json.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

/// Goes up when a member is removed or changes its meaning.
constexpr std::int64_t kSchema = 1;

/// Writes the values of a row as members of an object.
class JsonCells final : public Cells {
 public:
  explicit JsonCells(Json& json) : json_(json) {}

  void Text(std::string_view text) override { json_.Text(text); }
  void Code(std::string_view code) override {
    if (code.empty()) {
      Missing();
    } else if (code.find_first_not_of("0123456789") == std::string_view::npos) {
      json_.Literal(code);
    } else {
      json_.Text(code);
    }
  }
  void Number(std::int64_t number) override { json_.Number(number); }
  void Number(float number) override { json_.Number(number); }
  void Seconds(double seconds) override { json_.Seconds(seconds); }
  void Missing() override { json_.Null(); }

 private:
  Json& json_;
};

void AddVariables(std::span<const TidyColumn> columns, const TidyRow& row, Json& json) {
  JsonCells cells(json);
  for (const TidyColumn& column : columns) {
    json.Key(column.name);
    column.write(row, column.argument, cells);
  }
}

void AddObservation(const ObservationContent& observation, Json& json) {
  const auto columns = std::span(ColumnsOf(TidyTable::episodes)).first(kObservationColumns);
  AddVariables(columns, {.content = observation}, json);
}

/// Adds the rows of a tidy table, without the columns that only repeat which observation it is.
/// `more` adds further members to a row.
template <typename More>
void AddRows(TidyTable table, const ObservationContent& observation, Json& json, More more) {
  const auto columns = std::span(ColumnsOf(table)).subspan(kObservationColumns);
  json.Key(NameOf(table)).BeginArray();
  ForEachRow(table, observation, [&](const TidyRow& row) {
    json.BeginObject();
    AddVariables(columns, row, json);
    more(row);
    json.EndObject();
  });
  json.EndArray();
}

/// Adds what the question lacks, as the names of variables.
void AddMissing(const questionInfo& question, Json& json) {
  const MissingCodes missing = FindMissingCodes(question);
  json.Key("missing").BeginArray();
  if (missing.text) json.Text("text");
  for (const Dimension dimension : missing.dimensions) json.Text(SchemeOf(dimension).variable);
  json.EndArray();
}

void AddSpells(const std::vector<DialogicSpell>& spells, Json& json) {
  json.Key("dialogic_spells").BeginArray();
  for (const DialogicSpell& spell : spells) {
    json.BeginObject().Key("first").Number(std::int64_t{spell.first});
    json.Key("last").Number(std::int64_t{spell.last}).EndObject();
  }
  json.EndArray();
}

void AddPlot(const QuestionPlot& plot, Json& json) {
  json.Key("plot").BeginArray();
  for (const std::string& row : plot.PlotRows) json.Text(row);
  json.EndArray();
}

void AddTimeSummary(const TimeSummary& summary, Json& json) {
  json.Key("time_summary").BeginObject().Key("activities").BeginArray();
  for (std::size_t group = 0; group < summary.blocks.size(); ++group) {
    for (const TimeSummaryRow& row : summary.blocks[group].rows) {
      json.BeginObject().Key("activity").Number(std::int64_t{row.activity});
      json.Key("group").Text(kActivityGroups[group].name).Key("seconds").Seconds(row.seconds);
      json.Key("offtask");
      row.meanOfftask ? json.Number(*row.meanOfftask) : json.Null();
      json.EndObject();
    }
  }
  json.EndArray();
  json.Key("non_instructional_seconds").Seconds(summary.nonInstructionalSeconds);
  json.Key("instructional_seconds").Seconds(summary.instructionalSeconds);
  json.EndObject();
}

void AddNumber(std::string_view name, std::string_view typed, Json& json) {
  const auto number = TypedSingle(typed);
  json.Key(name);
  number ? json.Number(*number) : json.Null();
}

void AddSurvey(const SurFile& survey, Json& json) {
  json.BeginObject();
  AddNumber("school", survey.identity.SchoolNum, json);
  AddNumber("class", survey.identity.ClassNum, json);
  AddNumber("observation", survey.identity.ObservNum, json);
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

std::string ObservationJson(const ObservationContent& observation) {
  std::string text;
  Json json(text);
  json.BeginObject().Key("schema").Number(kSchema);
  AddObservation(observation, json);
  AddRows(TidyTable::episodes, observation, json, [&](const TidyRow& row) {
    // The earlier name of `default_questions`.
    json.Key("normal_questions")
        .Number(std::int64_t{EpisodeQuestionCounts(*row.episode).allDefault});
    const Identity& identity = row.Header().identity;
    AddSpells(*row.spells, json);
    AddStatistics(MakeQuestionStatistics(identity, row.episodeNumber, *row.episode), json);
    AddPlot(MakeQuestionPlot(identity, row.episodeNumber, *row.episode), json);
  });
  AddRows(TidyTable::segments, observation, json, [](const TidyRow&) {});
  AddRows(TidyTable::questions, observation, json,
          [&](const TidyRow& row) { AddMissing(*row.question, json); });
  AddTimeSummary(MakeTimeSummary(observation.episodes->header, observation.episodes->Episodes),
                 json);
  json.Key("survey");
  if (observation.survey) {
    AddSurvey(*observation.survey, json);
  } else {
    json.Null();
  }
  json.EndObject();
  return text;
}

}  // namespace orvex
