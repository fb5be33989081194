#include "tables/agreement_json.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "model/activities.h"
#include "tables/json.h"

namespace orvex {
namespace {

/// Goes up when a member is removed or changes its meaning.
constexpr std::int64_t kSchema = 1;

void AddCount(std::string_view name, std::size_t count, Json& json) {
  json.Key(name).Number(static_cast<std::int64_t>(count));
}

void AddFigure(std::string_view name, std::optional<double> figure, Json& json) {
  json.Key(name);
  figure ? json.Number(*figure) : json.Null();
}

/// Adds a kappa of `table` and, where it is not defined, why. `which` ends the names of both.
void AddKappa(std::string_view name, std::optional<double> kappa, const CodeTable& table,
              Json& json, const std::string& which = "") {
  AddFigure(std::string(name) + which, kappa, json);
  if (const auto undefined = KappaUndefined(table)) {
    json.Key("undefined" + which).Text(NameOf(*undefined));
  }
}

void AddKappa(const CodeTable& table, Json& json, const std::string& which = "") {
  AddKappa("kappa", Kappa(table), table, json, which);
}

void AddActivities(const ActivityAgreement& activities, Json& json) {
  const CodeTable& table = activities.table;
  json.Key("activities").BeginObject();
  json.Key("seconds").Number(table.Total());
  AddFigure("percent", PercentAgreed(table), json);
  AddKappa(table, json);
  json.Key("tolerance").BeginObject();
  json.Key("seconds").Number(std::int64_t{activities.tolerance});
  AddKappa(activities.tolerantFirst, json, "_first");
  AddKappa(activities.tolerantSecond, json, "_second");
  json.EndObject().Key("table").BeginArray();
  for (std::size_t first = 0; first < table.Codes(); ++first) {
    for (std::size_t second = 0; second < table.Codes(); ++second) {
      if (table.At(first, second) == 0) continue;
      json.BeginArray().Number(static_cast<std::int64_t>(first));
      json.Number(static_cast<std::int64_t>(second)).Number(table.At(first, second)).EndArray();
    }
  }
  json.EndArray().EndObject();
}

void AddBoundaries(const BoundaryAgreement& boundaries, Json& json) {
  json.Key("boundaries").BeginObject();
  json.Key("first").Number(std::int64_t{boundaries.first});
  json.Key("second").Number(std::int64_t{boundaries.second});
  json.Key("both").Number(std::int64_t{boundaries.both});
  AddFigure("agreement", boundaries.Share(), json);
  json.EndObject();
}

/// Begins the object with the counts of questions, of a pair or of several.
template <typename OfQuestions>
void BeginQuestions(const OfQuestions& counts, std::size_t both, Json& json) {
  json.Key("questions").BeginObject();
  AddCount("first", counts.firstQuestions, json);
  AddCount("second", counts.secondQuestions, json);
  AddCount("both", both, json);
  AddFigure("agreement", counts.QuestionShare(), json);
}

void AddQuestionPairs(const QuestionPairs& pairs, Json& json) {
  const auto add = [&json](const std::optional<std::size_t>& question) {
    question ? json.Number(static_cast<std::int64_t>(*question + 1)) : json.Null();
  };
  json.Key("pairs").BeginArray();
  for (const QuestionPair& pair : pairs) {
    json.BeginArray();
    add(pair.first);
    add(pair.second);
    json.EndArray();
  }
  json.EndArray();
}

void AddCode(const CodeAgreement& code, Json& json) {
  const CodeTable& table = code.table;
  json.Key(code.compared->name).BeginObject();
  json.Key("n").Number(table.Total());
  json.Key("left_out").Number(std::int64_t{code.leftOut});
  json.Key("neither").Number(std::int64_t{code.neither});
  AddFigure("percent", PercentAgreed(table), json);
  AddKappa(table, json);
  AddFigure("kappa_low", KappaLow(table), json);
  AddFigure("kappa_high", KappaHigh(table), json);
  AddFigure("ac1", Ac1(table), json);
  json.Key("letters").BeginArray();
  for (const char letter : code.compared->letters) json.Text({&letter, 1});
  json.EndArray().Key("table").BeginArray();
  for (std::size_t first = 0; first < table.Codes(); ++first) {
    json.BeginArray();
    for (std::size_t second = 0; second < table.Codes(); ++second) {
      json.Number(table.At(first, second));
    }
    json.EndArray();
  }
  json.EndArray().EndObject();
}

void AddCodes(const std::vector<CodeAgreement>& codes, Json& json) {
  json.Key("codes").BeginObject();
  for (const CodeAgreement& code : codes) AddCode(code, json);
  json.EndObject();
}

void AddOfftask(const Agreement& agreement, Json& json) {
  json.Key("offtask").BeginObject();
  for (std::size_t i = 0; i < kOfftaskCategories.size(); ++i) {
    const auto activity =
        std::ranges::find(kActivities, kOfftaskCategories[i], &Activity::estimateKind);
    json.Key(ActivityDigits(activity->number)).BeginArray();
    json.Number(agreement.firstOfftask[i]).Number(agreement.secondOfftask[i]).EndArray();
  }
  json.EndObject();
}

void AddSurvey(const std::optional<SurveyAgreement>& survey, Json& json) {
  json.Key("survey");
  if (!survey) {
    json.Null();
    return;
  }
  const CodeTable& ratings = survey->ratings;
  json.BeginObject();
  json.Key("n").Number(ratings.Total());
  json.Key("left_out").Number(std::int64_t{survey->leftOut});
  json.Key("exact").Number(ratings.Agreed());
  json.Key("within_one").Number(survey->WithinOne());
  AddKappa("weighted_kappa", WeightedKappa(ratings), ratings, json);
  json.Key("items").BeginObject();
  json.Key("n").Number(survey->items.Total());
  AddFigure("percent", PercentAgreed(survey->items), json);
  AddKappa(survey->items, json);
  json.EndObject().EndObject();
}

void AddIcc(const std::array<Icc, kClassFigures>& figures, Json& json) {
  json.Key("icc").BeginObject();
  for (std::size_t i = 0; i < figures.size(); ++i) {
    const Icc& icc = figures[i];
    json.Key(NameOf(static_cast<ClassFigure>(i))).BeginObject();
    AddCount("pairs", icc.pairs, json);
    AddCount("left_out", icc.leftOut, json);
    AddFigure("icc", icc.value, json);
    if (!icc.value) json.Key("undefined").Text(icc.undefined);
    json.EndObject();
  }
  json.EndObject();
}

}  // namespace

std::string AgreementJson(const Agreement& agreement) {
  std::string text;
  Json json(text);
  json.BeginObject().Key("schema").Number(kSchema);
  json.Key("first").Text(agreement.first.file).Key("second").Text(agreement.second.file);
  json.Key("offset").BeginObject();
  json.Key("seconds").Number(std::int64_t{agreement.offset.seconds});
  json.Key("from").Text(NameOf(agreement.offset.from)).EndObject();
  AddActivities(agreement.activities, json);
  AddBoundaries(agreement.boundaries, json);
  BeginQuestions(agreement, agreement.BothQuestions(), json);
  AddQuestionPairs(agreement.pairs, json);
  json.EndObject();
  AddCodes(agreement.codes, json);
  json.Key("respondent").BeginObject();
  json.Key("n").Number(std::int64_t{agreement.respondent.both});
  json.Key("same").Number(std::int64_t{agreement.respondent.same}).EndObject();
  AddOfftask(agreement, json);
  AddSurvey(agreement.survey, json);
  json.EndObject();
  return text;
}

std::string AgreementStudyJson(const AgreementStudy& study) {
  std::string text;
  Json json(text);
  json.BeginObject().Key("schema").Number(kSchema).Key("study").BeginObject();
  AddCount("pairs", study.pooled.pairs, json);
  AddCodes(study.pooled.codes, json);
  AddActivities(study.pooled.activities, json);
  BeginQuestions(study.pooled, study.pooled.bothQuestions, json);
  json.EndObject().Key("observers").BeginObject();
  for (const auto& [key, observer] : study.observers) {
    // Nobody's initials are empty, so that no name of an observer is this one.
    json.Key(key.empty() ? "" : observer.name).BeginObject();
    AddCount("pairs", observer.pooled.pairs, json);
    AddCodes(observer.pooled.codes, json);
    json.EndObject();
  }
  json.EndObject();
  AddIcc(study.icc, json);
  json.EndObject().EndObject();
  return text;
}

}  // namespace orvex
