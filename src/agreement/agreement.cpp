#include "agreement/agreement.h"

#include <algorithm>
#include <array>
#include <utility>

#include "agreement/share_of_both.h"
#include "model/texts.h"
#include "model/time_of_day.h"
#include "store/paths.h"
#include "store/printable_text.h"
#include "study/observation_day.h"

namespace orvex {
namespace {

Agreement::Observer ObserverOf(const ObservedClass& observed) {
  const EpsHeader& header = observed.observation.header;
  return {observed.Name(), header.identity, header.ObservDate};
}

/// True for two texts of one day, and for two equal ones that are no day.
bool AreOfOneDay(const std::string& first, const std::string& second) {
  return first == second || (DayOf(first) && DayOf(first) == DayOf(second));
}

void AddFileRemarks(const ObservedClass& observed, std::vector<std::string>& remarks) {
  const auto add = [&](const std::string& note) {
    remarks.push_back(Say(Text::problemInFile, {Printable(observed.Name()), note}));
  };
  for (const std::string& note : observed.notes) add(note);
  if (observed.surveyProblem) add("the survey: " + observed.surveyProblem->Text());
}

void RemarkOn(const ObservedClass& first, const ObservedClass& second, Agreement& agreement) {
  const Agreement::Observer& a = agreement.first;
  const Agreement::Observer& b = agreement.second;
  const auto classOf = [](Identity identity) {
    NormaliseNumbers(identity);
    return identity.SchoolNum + "-" + identity.ClassNum;
  };
  const auto remark = [&](Text differs, const std::string& ofFirst, const std::string& ofSecond) {
    agreement.remarks.push_back(Say(differs, {Printable(ofFirst), Printable(ofSecond)}));
  };
  const std::string classOfFirst = classOf(a.identity);
  const std::string classOfSecond = classOf(b.identity);
  if (classOfFirst != classOfSecond) remark(Text::otherClasses, classOfFirst, classOfSecond);
  if (!AreOfOneDay(a.date, b.date)) remark(Text::otherDays, a.date, b.date);
  if (agreement.offset.from == Offset::From::start && first.logStart && second.logStart) {
    agreement.remarks.emplace_back(Say(Text::logsOfOtherDays));
  }
  AddFileRemarks(first, agreement.fileRemarks);
  AddFileRemarks(second, agreement.fileRemarks);
}

/// The stretches of a class; where there are none, says why.
std::vector<ActivityStretch> Stretches(const ObservedClass& observed, int offset,
                                       std::vector<std::string>& remarks) {
  const EpisodeList& episodes = observed.observation.Episodes;
  std::vector<ActivityStretch> stretches = StretchesOf(episodes, offset);
  if (stretches.empty()) {
    const bool hasSegments = std::ranges::any_of(
        episodes, [](const Episode& episode) { return !episode.segments.empty(); });
    remarks.push_back(
        Say(hasSegments ? Text::timeNotCredible : Text::timeMissing, {Printable(observed.Name())}));
  }
  return stretches;
}

}  // namespace

std::string_view NameOf(Offset::From from) {
  static constexpr std::array<std::string_view, 3> kNames = {"log", "given", "start"};
  return kNames[static_cast<std::size_t>(from)];
}

Offset OffsetOf(const ObservedClass& first, const ObservedClass& second, std::optional<int> given) {
  if (given) return {*given, Offset::From::given};
  if (!first.logStart || !second.logStart) return {};
  constexpr int kDay = static_cast<int>(kSecondsPerDay);
  int seconds = *second.logStart - *first.logStart;
  // Midnight may lie between the two.
  const int nights = seconds > kDay / 2 ? -1 : seconds < -kDay / 2 ? 1 : 0;
  seconds += nights * kDay;
  // Where a log does not state its day, the times alone have to do.
  const auto days = first.logDay && second.logDay ? (*second.logDay - *first.logDay).count() : 0;
  if (days != 0 && days != nights) return {};
  return {seconds, Offset::From::log};
}

std::size_t Agreement::BothQuestions() const {
  return static_cast<std::size_t>(std::ranges::count_if(pairs, &QuestionPair::IsOfBoth));
}

std::optional<double> Agreement::QuestionShare() const {
  return ShareOfBoth(BothQuestions(), firstQuestions, secondQuestions);
}

std::vector<std::string> Agreement::AllRemarks() const {
  std::vector<std::string> all = remarks;
  all.insert(all.end(), fileRemarks.begin(), fileRemarks.end());
  return all;
}

AskedQuestions QuestionsOf(const ObservedClass& first, const ObservedClass& second) {
  return {QuestionsOf(first.observation.Episodes), QuestionsOf(second.observation.Episodes)};
}

Agreement Compare(const ObservedClass& first, const ObservedClass& second,
                  const AskedQuestions& questions, const ComparisonOptions& options,
                  std::optional<QuestionPairs> given) {
  Agreement agreement;
  agreement.first = ObserverOf(first);
  agreement.second = ObserverOf(second);
  agreement.offset = OffsetOf(first, second, options.offset);
  RemarkOn(first, second, agreement);

  const auto ofFirst = Stretches(first, 0, agreement.remarks);
  const auto ofSecond = Stretches(second, agreement.offset.seconds, agreement.remarks);
  agreement.activities = CompareActivities(ofFirst, ofSecond, options.tolerance);
  agreement.boundaries = CompareBoundaries(ofFirst, ofSecond, options.tolerance);
  agreement.overlap = static_cast<double>(agreement.activities.table.Total());
  if (agreement.overlap == 0 && !ofFirst.empty() && !ofSecond.empty()) {
    agreement.remarks.emplace_back(Say(Text::noTimeInCommon));
  }

  agreement.firstQuestions = questions.first.size();
  agreement.secondQuestions = questions.second.size();
  agreement.pairsGiven = given.has_value();
  agreement.pairs =
      given ? *std::move(given)
            : PairQuestions(questions.first, questions.second, agreement.offset.seconds);
  agreement.codes = CompareCodes(questions.first, questions.second, agreement.pairs);
  agreement.respondent = CompareRespondents(questions.first, questions.second, agreement.pairs);

  agreement.firstOfftask = first.observation.header.ActivityOfftask;
  agreement.secondOfftask = second.observation.header.ActivityOfftask;
  if (first.survey && second.survey) {
    agreement.survey = CompareSurveys(*first.survey, *second.survey);
  }
  return agreement;
}

}  // namespace orvex
