#include "reports/question_statistics.h"

#include <algorithm>
#include <cstddef>

#include "model/texts.h"
#include "reports/episode_origin.h"
#include "store/numbers.h"

namespace orvex {
namespace {

using Count = int CodeCounts::*;

/// What a segment of a bar shows: a count, and the count that would fill the whole bar.
struct SegmentRule {
  Count count;
  Count reference;
  BarMeaning meaning;
};

/// What a line shows. The counts of its segments fill in the numbers of its heading.
struct RowRule {
  std::vector<std::string_view> heading;  ///< the texts around the numbers; may be empty
  std::string_view emptyHeading;          ///< the heading when there are no numbers to fill in
  Count shown;                            ///< the count beside the heading; may be null
  std::vector<SegmentRule> segments;
  bool restIsUncoded;
};

const std::array<RowRule, kStatisticsLines>& RowRules() {
  using C = CodeCounts;
  static const std::array<RowRule, kStatisticsLines> rules = {{
      {{}, "Total Number of Questions", &C::Total, {}, false},
      {{}, "Normal Questions", nullptr, {{&C::Normal, &C::Total, BarMeaning::no}}, false},
      {{"Teacher ", " / Student Questions ", ""},
       "Teacher / Student Questions",
       nullptr,
       {{&C::TeacherQ, &C::Total, BarMeaning::no}, {&C::StudentQ, &C::Total, BarMeaning::positive}},
       true},
      {{},
       "Authentic Teacher Questions",
       &C::AuthTeacher,
       {{&C::AuthTeacher, &C::TeacherQ, BarMeaning::positive}},
       false},
      {{},
       "Authentic Student Questions",
       &C::AuthStudent,
       {{&C::AuthStudent, &C::StudentQ, BarMeaning::positive}},
       false},
      {{},
       "Higher-Level Questions",
       &C::HigherLevel,
       {{&C::HigherLevel, &C::TeacherQ, BarMeaning::positive}},
       false},
      {{},
       "Nonresponses to Teacher Questions",
       &C::NoResponse,
       {{&C::NoResponse, &C::TeacherQ, BarMeaning::negative}},
       false},
      {{"Uptake (None ", ", Test ", ", Authentic ", ")"},
       "Uptake (None, Test, Authentic)",
       nullptr,
       {{&C::UptakeNone, &C::Responded, BarMeaning::no},
        {&C::UptakeTest, &C::Responded, BarMeaning::positive},
        {&C::UptakeAuthentic, &C::Responded, BarMeaning::positive}},
       true},
      {{"Elaborated ", " / Unelaborated ", ""},
       "Elaborated / Unelaborated",
       nullptr,
       {{&C::Elaborated, &C::Responded, BarMeaning::positive},
        {&C::Unelaborated, &C::Responded, BarMeaning::no}},
       true},
      {{"Answering ", " / Closing down ", " / Opening up ", ""},
       "Answering / Closing down / Opening up",
       nullptr,
       {{&C::Answering, &C::StudentQ, BarMeaning::no},
        {&C::ClosingDown, &C::StudentQ, BarMeaning::negative},
        {&C::OpeningUp, &C::StudentQ, BarMeaning::positive}},
       false},
      {{},
       "Response Related to Previous Responses",
       &C::RelatedToPrevious,
       {{&C::RelatedToPrevious, &C::TeacherQ, BarMeaning::positive}},
       false},
  }};
  return rules;
}

void CountTeacherQuestion(const questionInfo& question, CodeCounts& counts) {
  ++counts.TeacherQ;
  if (question.strAuth() == "A") ++counts.AuthTeacher;
  if (question.strCogLev() == "H") ++counts.HigherLevel;
  if (question.strRspns() == "N") ++counts.NoResponse;
  if (question.strRspns() == "Y" && question.strPFMany() == "Y") ++counts.RelatedToPrevious;
}

void CountStudentQuestion(const questionInfo& question, CodeCounts& counts) {
  ++counts.StudentQ;
  if (question.strAuth() == "A") ++counts.AuthStudent;
  if (question.strRspns() != "Y") return;
  if (question.strTResp() == "A") ++counts.Answering;
  if (question.strTResp() == "C") ++counts.ClosingDown;
  if (question.strTResp() == "O") ++counts.OpeningUp;
}

void CountResponse(const questionInfo& question, CodeCounts& counts) {
  ++counts.Responded;
  if (question.strUptake() == "N") ++counts.UptakeNone;
  if (question.strUptake() == "T") ++counts.UptakeTest;
  if (question.strUptake() == "A") ++counts.UptakeAuthentic;
  if (question.strElab() == "E") ++counts.Elaborated;
  if (question.strElab() == "U") ++counts.Unelaborated;
}

void CountQuestion(const questionInfo& question, CodeCounts& counts) {
  ++counts.Total;
  if (question.IsNormal()) ++counts.Normal;
  if (question.strSrc() == "T") CountTeacherQuestion(question, counts);
  if (question.strSrc() == "S") CountStudentQuestion(question, counts);
  if (question.strRspns() == "Y") CountResponse(question, counts);
}

std::string HeadingOf(const RowRule& rule, const CodeCounts& counts) {
  if (rule.heading.empty()) return std::string(rule.emptyHeading);
  std::string heading(rule.heading.front());
  for (std::size_t i = 0; i < rule.segments.size(); ++i) {
    heading += std::to_string(counts.*rule.segments[i].count);
    heading += rule.heading[i + 1];
  }
  return heading;
}

std::vector<BarSegment> BarOf(const RowRule& rule, const CodeCounts& counts) {
  std::vector<BarSegment> bar;
  double left = 0;
  for (const SegmentRule& segment : rule.segments) {
    BarSegment& drawn = bar.emplace_back();
    drawn.count = counts.*segment.count;
    drawn.reference = counts.*segment.reference;
    drawn.left = left;
    drawn.meaning = segment.meaning;
    if (drawn.count > 0 && drawn.reference > 0) {
      drawn.width = kBarLength * drawn.count / drawn.reference;
      drawn.caption = std::to_string(drawn.count);
    }
    left = drawn.Right();
  }
  return bar;
}

/// The teacher's questions other than nonresponses. Its segment spans the whole bar and lies
/// under that of the nonresponses.
BarSegment RestOfNonresponses(const CodeCounts& counts) {
  BarSegment rest;
  rest.count = counts.TeacherQ - counts.NoResponse;
  rest.reference = counts.TeacherQ;
  rest.width = kBarLength;
  if (counts.TeacherQ > 0) rest.meaning = BarMeaning::no;
  if (rest.count > 0) rest.caption = std::to_string(rest.count);
  return rest;
}

std::string PaceText(double questionsPerMinute) {
  return Say(Text::pace, {FormatPattern(questionsPerMinute, "0.##")});
}

/// Questions of one episode or of several, and what they were asked in.
struct CountedQuestions {
  std::string title;
  CodeCounts counts;
  double seconds = 0;
  float offtask = 0;  ///< the share of students
};

QuestionStatistics StatisticsOf(const CountedQuestions& counted) {
  QuestionStatistics statistics;
  const auto row = [&statistics](StatisticsLine line) -> StatisticsRow& {
    return statistics.rows[static_cast<std::size_t>(line)];
  };
  const auto& rules = RowRules();
  statistics.title = counted.title;
  for (std::size_t i = 0; i < rules.size(); ++i) {
    statistics.rows[i].heading = rules[i].emptyHeading;
    statistics.rows[i].bar.resize(rules[i].segments.size());
  }
  row(StatisticsLine::authenticTeacher).count = Say(Text::notAvailable);
  row(StatisticsLine::nonresponse).bar.resize(2);
  statistics.counts = counted.counts;
  const CodeCounts& counts = statistics.counts;
  if (counts.Total == 0) return statistics;

  for (std::size_t i = 0; i < rules.size(); ++i) {
    StatisticsRow& filled = statistics.rows[i];
    filled.heading = HeadingOf(rules[i], counts);
    if (rules[i].shown != nullptr) filled.count = std::to_string(counts.*rules[i].shown);
    filled.bar = BarOf(rules[i], counts);
    filled.restIsUncoded = rules[i].restIsUncoded;
  }
  row(StatisticsLine::nonresponse).bar.push_back(RestOfNonresponses(counts));
  statistics.questionsPerMinute = QuestionsPerMinute(counts.Total, counted.seconds);
  if (!statistics.questionsPerMinute) {
    statistics.message = Say(Text::cleanUpFirst);
    return statistics;
  }
  statistics.pace = PaceText(*statistics.questionsPerMinute);
  statistics.offtask = FormatPattern(100 * counted.offtask, "#0.#") + "%";
  return statistics;
}

}  // namespace

const std::array<std::pair<BarMeaning, std::string_view>, 4> kStatisticsLegend = {{
    {BarMeaning::positive, "Codings positively related to student achievement"},
    {BarMeaning::no, "Coded \"no\""},
    {BarMeaning::negative, "Codings negatively related to learning"},
    {BarMeaning::uncoded, "Not yet coded"},
}};

CodeCounts CountCodes(std::span<const questionInfo> questions) {
  CodeCounts counts;
  for (const questionInfo& question : questions) CountQuestion(question, counts);
  return counts;
}

CodeCounts CountCodes(const EpisodeList& episodes) {
  CodeCounts counts;
  for (const Episode& episode : episodes) {
    for (const questionInfo& question : episode.questions) CountQuestion(question, counts);
  }
  return counts;
}

std::optional<double> QuestionsPerMinute(int questions, double seconds) {
  constexpr double kSecondsPerMinute = 60;
  if (seconds == 0) return std::nullopt;
  return questions * kSecondsPerMinute / seconds;
}

double StatisticsRow::FilledLength() const {
  double length = 0;
  for (const BarSegment& segment : bar) length = std::max(length, segment.Right());
  return length;
}

std::optional<double> MeanOfftask(const EpisodeList& episodes) {
  double weights = 0;
  double weighted = 0;
  for (const Episode& episode : episodes) {
    if (episode.questions.empty()) continue;
    weights += episode.duration();
    weighted += episode.duration() * static_cast<double>(episode.offtask);
  }
  return weights > 0 ? std::optional(weighted / weights) : std::nullopt;
}

QuestionStatistics MakeQuestionStatistics(const Identity& identity, int number,
                                          const Episode& episode) {
  return StatisticsOf({.title = EpisodeTitle(identity, number),
                       .counts = CountCodes(episode.questions),
                       .seconds = episode.duration(),
                       .offtask = episode.offtask});
}

QuestionStatistics MakeQuestionStatistics(std::span<const EpsObservation> classes) {
  CountedQuestions counted;
  counted.title = classes.size() == 1 ? classes.front().header.identity.ClassId()
                                      : Say(Text::classes, {classes.size()});
  double offtask = 0;
  int withOfftask = 0;
  for (const auto& [header, episodes] : classes) {
    for (const Episode& episode : episodes) {
      counted.seconds += episode.duration();
      for (const questionInfo& question : episode.questions)
        CountQuestion(question, counted.counts);
    }
    const auto mean = MeanOfftask(episodes);
    if (!mean) continue;
    offtask += *mean;
    ++withOfftask;
  }
  if (withOfftask > 0) counted.offtask = static_cast<float>(offtask / withOfftask);
  return StatisticsOf(counted);
}

std::string TextOf(const QuestionStatistics& statistics) {
  std::string text = "Questions/Answer Statistics\t" + statistics.title + "\n\n";
  for (std::size_t i = 0; i < statistics.rows.size(); ++i) {
    const StatisticsRow& row = statistics.rows[i];
    if (i == 0) text += "QUESTIONS\tOf\tCount\n";
    if (i == static_cast<std::size_t>(kFirstResponseLine)) text += "\nRESPONSE\tOf\tCount\n";
    text += row.heading + "\t";
    const bool counted = statistics.counts.Total > 0 && !row.bar.empty();
    if (!counted) {
      text += "\t" + row.count;
    } else {
      text += std::to_string(row.bar.front().reference);
      for (const BarSegment& segment : row.bar) text += "\t" + std::to_string(segment.count);
    }
    text += "\n";
  }
  text += "\nPACE\t" + statistics.pace + "\nSTUDENT OFFTASK\t" + statistics.offtask + "\n";
  if (!statistics.message.empty()) text += "\n" + statistics.message + "\n";
  return text;
}

}  // namespace orvex
