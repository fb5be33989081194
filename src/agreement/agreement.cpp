#include "agreement/agreement.h"

#include <algorithm>
#include <array>
#include <utility>

#include "agreement/share_of_both.h"
#include "model/texts.h"
#include "model/time_of_day.h"
#include "store/paths.h"
#include "store/printable_text.h"

namespace orvex {
namespace {

Agreement::Observer ObserverOf(const ObservedClass& observed) {
  const EpsHeader& header = observed.observation.header;
  return {observed.Name(), header.identity, header.ObservDate};
}

/// What of an observation says which class it is of.
struct ClassMark {
  Text differs;  ///< what is said where two observations differ in it
  std::string first;
  std::string second;
};

void RemarkOn(const ObservedClass& first, const ObservedClass& second, Agreement& agreement) {
  const Agreement::Observer& a = agreement.first;
  const Agreement::Observer& b = agreement.second;
  const auto classOf = [](Identity identity) {
    NormaliseNumbers(identity);
    return identity.SchoolNum + "-" + identity.ClassNum;
  };
  const std::array<ClassMark, 2> marks = {
      {{Text::otherClasses, classOf(a.identity), classOf(b.identity)},
       {Text::otherDays, a.date, b.date}}};
  for (const auto& [differs, ofFirst, ofSecond] : marks) {
    if (ofFirst == ofSecond) continue;
    agreement.remarks.push_back(Say(differs, {Printable(ofFirst), Printable(ofSecond)}));
  }
  for (const ObservedClass* observed : {&first, &second}) {
    const std::string name = Printable(observed->Name());
    for (const std::string& note : observed->notes) {
      agreement.remarks.push_back(Say(Text::problemInFile, {name, note}));
    }
  }
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
  if (seconds > kDay / 2) seconds -= kDay;
  if (seconds < -kDay / 2) seconds += kDay;
  return {seconds, Offset::From::log};
}

std::size_t Agreement::BothQuestions() const {
  return static_cast<std::size_t>(std::ranges::count_if(pairs, &QuestionPair::IsOfBoth));
}

std::optional<double> Agreement::QuestionShare() const {
  return ShareOfBoth(BothQuestions(), firstQuestions, secondQuestions);
}

Agreement Compare(const ObservedClass& first, const ObservedClass& second,
                  const ComparisonOptions& options, QuestionPairs pairs) {
  Agreement agreement;
  agreement.first = ObserverOf(first);
  agreement.second = ObserverOf(second);
  agreement.isWhole = first.isWhole && second.isWhole;
  RemarkOn(first, second, agreement);

  agreement.offset = OffsetOf(first, second, options.offset);
  const auto ofFirst = Stretches(first, 0, agreement.remarks);
  const auto ofSecond = Stretches(second, agreement.offset.seconds, agreement.remarks);
  agreement.activities = CompareActivities(ofFirst, ofSecond, options.tolerance);
  agreement.boundaries = CompareBoundaries(ofFirst, ofSecond, options.tolerance);
  agreement.overlap = static_cast<double>(agreement.activities.table.Total());
  if (agreement.overlap == 0 && !ofFirst.empty() && !ofSecond.empty()) {
    agreement.remarks.emplace_back(Say(Text::noTimeInCommon));
  }

  const auto firstQuestions = QuestionsOf(first.observation.Episodes);
  const auto secondQuestions = QuestionsOf(second.observation.Episodes);
  agreement.firstQuestions = firstQuestions.size();
  agreement.secondQuestions = secondQuestions.size();
  agreement.codes = CompareCodes(firstQuestions, secondQuestions, pairs);
  agreement.respondent = CompareRespondents(firstQuestions, secondQuestions, pairs);
  agreement.pairs = std::move(pairs);
  agreement.pairsGiven = true;

  agreement.firstOfftask = first.observation.header.ActivityOfftask;
  agreement.secondOfftask = second.observation.header.ActivityOfftask;
  if (first.survey && second.survey) {
    agreement.survey = CompareSurveys(*first.survey, *second.survey);
  }
  return agreement;
}

Agreement Compare(const ObservedClass& first, const ObservedClass& second,
                  const ComparisonOptions& options) {
  const Offset offset = OffsetOf(first, second, options.offset);
  Agreement agreement =
      Compare(first, second, options,
              PairQuestions(QuestionsOf(first.observation.Episodes),
                            QuestionsOf(second.observation.Episodes), offset.seconds));
  agreement.pairsGiven = false;
  return agreement;
}

}  // namespace orvex
