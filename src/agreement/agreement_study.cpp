#include "agreement/agreement_study.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "agreement/comparison.h"
#include "agreement/icc.h"
#include "agreement/observer_name.h"
#include "agreement/share_of_both.h"
#include "agreement/study_classes.h"
#include "study/ordered_reading.h"

namespace orvex {
namespace {

Icc IccOf(const std::vector<StudyPair>& pairs, std::size_t figure) {
  constexpr std::size_t kFewestPairs = 3;
  std::vector<std::vector<double>> ratings;
  for (const StudyPair& pair : pairs) {
    const auto& first = pair.firstFigures[figure];
    const auto& second = pair.secondFigures[figure];
    if (first && second) ratings.push_back({*first, *second});
  }
  Icc icc = {.pairs = ratings.size(), .leftOut = pairs.size() - ratings.size()};
  if (ratings.size() < kFewestPairs) {
    icc.undefined = "fewer than " + std::to_string(kFewestPairs) + " pairs";
    return icc;
  }
  icc.value = IccA1(ratings);
  if (!icc.value) icc.undefined = "no variance";
  return icc;
}

/// What is known of a file: which class it is of, or why it could not be read.
struct LookedAt {
  std::optional<FoundObservation> found = {};
  std::optional<Problem> problem = {};
};

LookedAt LookAt(const std::filesystem::path& file) {
  LookedAt result;
  result.problem = ProblemOf(file, [&] { result.found = FindObservation(file); });
  return result;
}

std::size_t CountOfPairs(const ClassFiles& files) {
  return files.size() * (files.size() - 1) / 2;
}

/// What came of the observations of one class.
struct ComparedClass {
  std::vector<StudyPair> pairs;
  std::vector<Problem> unread;
  std::vector<Problem> warnings;
};

/// Reads the observations. What cannot be read, and what is doubtful, goes to `compared`.
std::vector<ObservedClass> ReadAll(const ClassFiles& files, ComparedClass& compared) {
  std::vector<ObservedClass> classes;
  for (const std::filesystem::path& file : files) {
    const auto problem = ProblemOf(file, [&] { classes.push_back(ReadObservedClass(file)); });
    if (problem) {
      compared.unread.push_back(*problem);
      continue;
    }
    const ObservedClass& observed = classes.back();
    if (observed.surveyProblem) compared.unread.push_back(*observed.surveyProblem);
    for (const std::string& note : observed.notes) {
      compared.warnings.push_back(Warning(file, 0, note));
    }
  }
  return classes;
}

StudyPair PairOf(const ObservedClass& first, const ObservedClass& second,
                 const ComparisonOptions& options) {
  const Comparison comparison(first, second, options);
  return {first.file,
          second.file,
          comparison.Result(),
          DisagreementsOf(comparison),
          FiguresOf(first.observation),
          FiguresOf(second.observation)};
}

ComparedClass CompareClass(const ClassFiles& files, const ComparisonOptions& options) {
  ComparedClass compared;
  const std::vector<ObservedClass> classes = ReadAll(files, compared);
  for (auto first = classes.begin(); first != classes.end(); ++first) {
    for (auto second = first + 1; second != classes.end(); ++second) {
      compared.pairs.push_back(PairOf(*first, *second, options));
    }
  }
  return compared;
}

/// Makes `count` values on all cores, and in their order hands them to `take`. `stops` ends the
/// work early.
template <typename Value, typename Take>
void MakeAll(std::size_t count, const std::function<Value(std::size_t)>& make,
             const std::function<bool()>& stops, const Take& take) {
  OrderedReading<Value> making(count, make);
  while (!(stops && stops())) {
    auto made = making.Take();
    if (!made) return;
    take(*std::move(made));
  }
}

}  // namespace

PooledAgreement::PooledAgreement() {
  for (const ComparedDimension& compared : ComparedDimensions()) {
    codes.push_back({&compared, CodeTable(compared.letters.size())});
  }
}

void PooledAgreement::Add(const Agreement& pair) {
  ++pairs;
  for (std::size_t i = 0; i < codes.size(); ++i) codes[i] += pair.codes[i];
  activities += pair.activities;
  firstQuestions += pair.firstQuestions;
  secondQuestions += pair.secondQuestions;
  bothQuestions += pair.BothQuestions();
}

void PooledAgreement::AddSwapped(const Agreement& pair) {
  Agreement swapped = pair;
  for (CodeAgreement& code : swapped.codes) code.table = code.table.Transposed();
  swapped.activities.table = pair.activities.table.Transposed();
  std::swap(swapped.activities.tolerantFirst, swapped.activities.tolerantSecond);
  std::swap(swapped.firstQuestions, swapped.secondQuestions);
  Add(swapped);
}

std::optional<double> PooledAgreement::QuestionShare() const {
  return ShareOfBoth(bothQuestions, firstQuestions, secondQuestions);
}

const std::string& AgreementStudy::NameOf(const Agreement::Observer& observer) const {
  return observers.at(ObserverKey(observer.identity)).name;
}

AgreementStudy StudyOf(std::vector<StudyPair> pairs) {
  AgreementStudy study;
  const auto observerOf = [&study](const Identity& identity) -> PooledAgreement& {
    const auto [at, isNew] = study.observers.try_emplace(ObserverKey(identity));
    if (isNew) at->second.name = ShownInitials(identity);
    return at->second.pooled;
  };
  for (const StudyPair& pair : pairs) {
    const Agreement& agreement = pair.agreement;
    study.pooled.Add(agreement);
    PooledAgreement& first = observerOf(agreement.first.identity);
    first.Add(agreement);
    PooledAgreement& second = observerOf(agreement.second.identity);
    if (&second != &first) second.AddSwapped(agreement);
  }
  for (std::size_t figure = 0; figure < study.icc.size(); ++figure) {
    study.icc[figure] = IccOf(pairs, figure);
  }
  study.pairs = std::move(pairs);
  return study;
}

AgreementStudy CompareAll(const std::vector<std::filesystem::path>& files,
                          const ComparisonOptions& options, const std::function<bool()>& stops,
                          const std::function<void(const StudyProgress&)>& progress) {
  const auto tell = [&](const StudyProgress& now) {
    if (progress) progress(now);
  };
  std::vector<Problem> unread;
  std::vector<FoundObservation> found;
  const std::vector<std::filesystem::path> distinct = WithoutRepeats(files);
  StudyProgress finding{.step = StudyProgress::Step::finding, .of = distinct.size()};
  MakeAll<LookedAt>(
      distinct.size(), [&](std::size_t file) { return LookAt(distinct[file]); }, stops,
      [&](LookedAt file) {
        if (file.problem) unread.push_back(*std::move(file.problem));
        if (file.found) found.push_back(*std::move(file.found));
        ++finding.done;
        tell(finding);
      });
  // Who has no partner is known once all have been found.
  if (stops && stops()) found.clear();

  std::vector<std::string> remarks;
  const std::vector<ClassFiles> classes = ClassesOf(std::move(found), remarks);
  StudyProgress comparing{.step = StudyProgress::Step::comparing};
  for (const ClassFiles& ofClass : classes) comparing.of += CountOfPairs(ofClass);
  std::vector<StudyPair> pairs;
  std::vector<Problem> warnings;
  auto next = classes.begin();
  MakeAll<ComparedClass>(
      classes.size(), [&](std::size_t at) { return CompareClass(classes[at], options); }, stops,
      [&](ComparedClass compared) {
        std::ranges::move(compared.pairs, std::back_inserter(pairs));
        std::ranges::move(compared.unread, std::back_inserter(unread));
        std::ranges::move(compared.warnings, std::back_inserter(warnings));
        comparing.done += CountOfPairs(*next++);
        tell(comparing);
      });
  AgreementStudy study = StudyOf(std::move(pairs));
  study.unread = std::move(unread);
  study.warnings = std::move(warnings);
  study.remarks = std::move(remarks);
  return study;
}

}  // namespace orvex
