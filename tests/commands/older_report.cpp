#include "commands/older_report.h"

#include <QJsonArray>
#include <QString>
#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "model/activities.h"
#include "model/dimensions.h"
#include "model/episode.h"
#include "model/wording.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "store/numbers.h"

namespace orvex::test {
namespace {

using Line = StatisticsLine;
using NamedLine = std::pair<const char*, Line>;

constexpr std::array<NamedLine, 6> kCounts = {{{"0", Line::total},
                                               {"6", Line::authenticTeacher},
                                               {"7", Line::authenticStudent},
                                               {"8", Line::higherLevel},
                                               {"11", Line::nonresponse},
                                               {"4", Line::relatedToPrevious}}};
constexpr std::array<NamedLine, 4> kHeadings = {{{"Label31", Line::source},
                                                 {"Label19", Line::uptake},
                                                 {"Label6", Line::elaborated},
                                                 {"Label9", Line::teacherResponse}}};
constexpr std::array<NamedLine, 10> kBars = {{{"Normal", Line::normal},
                                              {"Source", Line::source},
                                              {"AuthTQ", Line::authenticTeacher},
                                              {"AuthSQ", Line::authenticStudent},
                                              {"HLevQ", Line::higherLevel},
                                              {"NoRespT", Line::nonresponse},
                                              {"Uptake1", Line::uptake},
                                              {"ELAB", Line::elaborated},
                                              {"TResponse1", Line::teacherResponse},
                                              {"PFMany", Line::relatedToPrevious}}};
constexpr std::array<std::pair<const char*, const char*>, 18> kCodeCounts = {
    {{"Total", "total"},
     {"Normal", "normal"},
     {"TeacherQ", "teacher"},
     {"StudentQ", "student"},
     {"AuthTeacher", "authentic_teacher"},
     {"AuthStudent", "authentic_student"},
     {"NoResponse", "no_response"},
     {"HigherLevel", "higher_level"},
     {"RelatedToPrevious", "related_to_previous"},
     {"Answering", "answering"},
     {"ClosingDown", "closing_down"},
     {"OpeningUp", "opening_up"},
     {"Responded", "responded"},
     {"UptakeNone", "uptake_none"},
     {"UptakeTest", "uptake_test"},
     {"UptakeAuthentic", "uptake_authentic"},
     {"Elaborated", "elaborated"},
     {"Unelaborated", "unelaborated"}}};

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonValue At(const QJsonValue& object, std::string_view key) {
  return object.toObject()[Text(key)];
}

std::string Digits(const QJsonValue& number) {
  return PrintDigits(static_cast<float>(number.toDouble()));
}

QJsonValue Numeral(const QJsonValue& number) {
  return QString::number(number.toInt());
}

/// The rows of `table` that belong to `episode`.
QJsonArray RowsOf(const QJsonObject& report, const char* table, const QJsonValue& episode) {
  QJsonArray rows;
  for (const QJsonValue row : At(report, table).toArray()) {
    if (At(row, "episode") == episode) rows.append(row);
  }
  return rows;
}

QJsonObject Header(const QJsonObject& report) {
  const QStringList date = At(report, "date").toString().split(u'-');
  QJsonArray averages;
  for (std::size_t i = 0; i < kOfftaskCategories.size(); ++i) averages.append(QJsonValue());
  for (const QJsonValue row : At(At(report, "time_summary"), "activities").toArray()) {
    const auto position = OfftaskPosition(At(row, "activity").toInt());
    if (position) averages[static_cast<int>(*position)] = Text(Digits(At(row, "offtask")));
  }
  return {{"SchoolNum", Numeral(At(report, "school"))},
          {"ClassNum", Numeral(At(report, "class"))},
          {"ObservNum", Numeral(At(report, "observation"))},
          {"NumStudents", Numeral(At(report, "students"))},
          {"Initials", At(report, "observer")},
          {"ObservDate", date[1] + u'-' + date[2] + u'-' + date[0]},
          {"StartTime", At(report, "start_time")},
          {"episodes", At(report, "episodes").toArray().size()},
          {"averages", averages}};
}

QJsonObject Segment(const QJsonValue& row) {
  const int activity = At(row, "activity").toInt();
  QJsonArray numbers = {activity, At(row, "seconds")};
  for (const SubCode code : ActivityOf(activity).subCodes) {
    numbers.append(At(row, SchemeOf(code).name).toInt(kUncoded));
  }
  return {{"numbers", numbers}, {"about", At(row, "about")}};
}

QJsonObject Question(const QJsonValue& row, const questionInfo& asked) {
  QJsonArray letters;
  for (const Dimension dimension : kLetteredDimensions) {
    letters.append(At(row, SchemeOf(dimension).variable).toString());
  }
  return {{"text", At(row, "text")},
          {"name", At(row, "respondent")},
          // The tables leave out segment numbers below 1.
          {"segment", At(row, "segment").toInt(std::min<int>(asked.iSgQ, 0))},
          {"letters", letters}};
}

QJsonArray Bar(const QJsonArray& bar, const StatisticsRow& row) {
  QJsonArray older;
  for (int i = 0; i < bar.size(); ++i) {
    older.append(QJsonArray{At(bar[i], "start").toDouble() * kBarLength,
                            At(bar[i], "share").toDouble() * kBarLength,
                            Text(row.bar.at(static_cast<std::size_t>(i)).caption)});
  }
  return older;
}

QJsonObject Statistics(const QJsonValue& found, const QuestionStatistics& shown) {
  QJsonObject older = {{"Label14", Text(shown.title)}};
  QJsonArray messages;
  if (!shown.message.empty()) messages.append(Text(shown.message));
  older["messages"] = messages;
  QJsonObject counts;
  for (const auto& [index, line] : kCounts) {
    if (!found.isNull() || line == Line::authenticTeacher) {
      counts[Text(index)] = Text(shown.Row(line).count);
    }
  }
  older["Label1"] = counts;
  if (found.isNull()) return older;

  QJsonObject codeCounts;
  for (const auto& [key, name] : kCodeCounts) codeCounts[Text(key)] = At(At(found, "counts"), name);
  older["counts"] = codeCounts;
  for (const auto& [label, line] : kHeadings) older[Text(label)] = Text(shown.Row(line).heading);
  QJsonObject bars;
  for (const auto& [name, line] : kBars) {
    QJsonArray bar = At(At(found, "lines").toArray()[static_cast<int>(line)], "bar").toArray();
    if (line == Line::nonresponse) {
      // The second part of this bar used to be a separate control.
      const QJsonValue rest = bar.takeAt(1);
      older["NoRespT1"] = QJsonObject{{"yellow", At(rest, "meaning").toString() == u"no"},
                                      {"caption", Text(shown.Row(line).bar.at(1).caption)}};
    }
    bars[Text(name)] = Bar(bar, shown.Row(line));
  }
  older["bars"] = bars;
  const QJsonValue pace = At(found, "questions_per_minute");
  if (pace.isNull()) return older;
  older["Label13"] = Text("(questions per minute) " + FormatPattern(pace.toDouble(), "0.##"));
  older["Label15"] = Text(shown.offtask);
  return older;
}

QJsonObject OlderEpisode(const QJsonObject& report, const QJsonValue& row, const Identity& identity,
                         const Episode& episode) {
  const QJsonValue number = At(row, "episode");
  QJsonArray segments;
  for (const QJsonValue segment : RowsOf(report, "segments", number)) {
    segments.append(Segment(segment));
  }
  QJsonArray questions;
  for (const QJsonValue question : RowsOf(report, "questions", number)) {
    const auto position = static_cast<std::size_t>(questions.size());
    questions.append(Question(question, episode.questions.at(position)));
  }
  QJsonArray spells;
  for (const QJsonValue spell : At(row, "dialogic_spells").toArray()) {
    spells.append(QJsonArray{At(spell, "first"), At(spell, "last")});
  }
  QJsonArray counts;
  for (const char* name : {"authentic_teacher", "authentic_student", "teacher_questions",
                           "student_questions", "unanswered", "test_uptake", "default_questions"}) {
    counts.append(At(row, name));
  }
  QJsonObject plot;
  for (const QJsonValue marks : At(row, "plot").toArray()) {
    plot[QString::number(plot.size())] = marks;
  }
  // The tables have a mean only for episodes with questions.
  const QJsonValue offtask = At(row, "offtask");
  const float mean = offtask.isNull() ? episode.offtask : static_cast<float>(offtask.toDouble());
  return {{"description", At(row, "description")},
          {"review", At(row, "review").toString()},
          // The expected text is a caption, with ampersands doubled.
          {"label", Text(ActivityLabel(episode)).replace(u'&', QStringLiteral("&&"))},
          {"duration", At(row, "seconds")},
          {"durationWords", Text(DurationInWords(At(row, "seconds").toDouble()))},
          {"segments", segments},
          {"questions", questions},
          {"offtask", Text(PrintDigits(mean))},
          {"offtaskExport", Text(FormatPattern(mean, "0.#######"))},
          {"spells", spells},
          {"summaryCounts", counts},
          {"statistics", Statistics(At(row, "statistics"),
                                    MakeQuestionStatistics(identity, number.toInt(), episode))},
          {"plot", plot}};
}

QJsonObject OlderTimeSummary(const QJsonValue& found, const TimeSummary& shown) {
  QJsonArray rows;
  for (const Activity& activity : kActivities) {
    for (const QJsonValue row : At(found, "activities").toArray()) {
      if (At(row, "activity").toInt() != activity.number) continue;
      const QJsonValue mean = At(row, "offtask");
      rows.append(QJsonArray{
          static_cast<int>(activity.group) + 1, activity.number, Text(activity.name),
          Text(FormatMinSec(At(row, "seconds").toDouble())),
          mean.isNull() ? "" : Text(FormatPattern(static_cast<float>(mean.toDouble()), "0.000"))});
    }
  }
  const double nonInstructional = At(found, "non_instructional_seconds").toDouble();
  const double instructional = At(found, "instructional_seconds").toDouble();
  return {{"Label53", Text(shown.title)},
          {"rows", rows},
          {"nonInstructional", Text(FormatMinSec(nonInstructional))},
          {"instructional", Text(FormatMinSec(instructional))},
          {"total", Text(FormatMinSec(nonInstructional + instructional))}};
}

/// The questions that are not fully coded: episode, number, and what is missing.
QJsonArray Uncoded(const QJsonObject& report) {
  QJsonArray uncoded;
  for (const QJsonValue row : At(report, "questions").toArray()) {
    const QJsonArray variables = At(row, "missing").toArray();
    if (variables.isEmpty()) continue;
    QJsonArray missing;
    if (variables.contains("text")) missing.append("question");
    for (const DimensionScheme& scheme : kDimensionSchemes) {
      if (variables.contains(Text(scheme.variable))) missing.append(Text(scheme.field));
    }
    uncoded.append(QJsonArray{At(row, "episode"), At(row, "question"), missing});
  }
  return uncoded;
}

QJsonObject Survey(QJsonObject survey) {
  for (const auto& [older, name] :
       {std::pair("SchoolNum", "school"), {"ClassNum", "class"}, {"ObservNum", "observation"}}) {
    survey[Text(older)] = Numeral(At(survey, name));
  }
  return survey;
}

}  // namespace

QJsonObject InOlderKeys(const QJsonObject& report, const EpsObservation& observation) {
  QJsonArray episodes;
  for (const QJsonValue row : At(report, "episodes").toArray()) {
    const auto position = static_cast<std::size_t>(episodes.size());
    episodes.append(
        OlderEpisode(report, row, observation.header.identity, observation.Episodes.at(position)));
  }
  const QJsonArray uncoded = Uncoded(report);
  QJsonArray first = {uncoded.isEmpty() ? -1 : 1};
  if (!uncoded.isEmpty()) {
    first.append(uncoded[0].toArray()[0]);
    first.append(uncoded[0].toArray()[1]);
  }
  const QJsonValue survey = At(report, "survey");
  return {
      {"header", Header(report)},
      {"episodes", episodes},
      {"timeSummary", OlderTimeSummary(At(report, "time_summary"),
                                       MakeTimeSummary(observation.header, observation.Episodes))},
      {"firstUncoded", first},
      {"uncoded", uncoded},
      {"survey", survey.isNull() ? survey : QJsonValue(Survey(survey.toObject()))}};
}

}  // namespace orvex::test
