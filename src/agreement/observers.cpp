#include "agreement/observers.h"

#include <algorithm>
#include <set>
#include <utility>

#include "agreement/observer_name.h"
#include "study/observation_day.h"

namespace orvex {
namespace {

using Day = std::chrono::sys_days;

/// True for a pair with the observer whose ObserverKey is `key`.
bool IsOf(const StudyPair& pair, const std::string& key) {
  return ObserverKey(pair.agreement.first.identity) == key ||
         ObserverKey(pair.agreement.second.identity) == key;
}

std::optional<Day> DayOfPair(const StudyPair& pair) {
  return DayOf(pair.agreement.first.date);
}

/// A mean that is made up as values come.
struct Mean {
  double sum = 0;
  std::size_t count = 0;

  void Add(double value) {
    sum += value;
    ++count;
  }
  std::optional<double> Value() const {
    return count > 0 ? std::optional(sum / static_cast<double>(count)) : std::nullopt;
  }
};

/// Whether a question is a normal one follows from its codes, and counts in no mean.
bool CountsInMean(const CodeAgreement& codes) {
  return codes.compared->dimension.has_value();
}

/// The mean of kappa over the dimensions in which it is defined.
std::optional<double> MeanKappa(const PooledAgreement& pooled) {
  Mean mean;
  for (const CodeAgreement& codes : pooled.codes) {
    const auto kappa = Kappa(codes.table);
    if (CountsInMean(codes) && kappa) mean.Add(*kappa);
  }
  return mean.Value();
}

/// Sets the means of the two halves of the observer's days.
void SetHalves(const AgreementStudy& study, ObserverAgreement& observer) {
  std::set<Day> days;
  for (const StudyPair& pair : study.pairs) {
    const auto day = DayOfPair(pair);
    if (day && IsOf(pair, observer.key)) days.insert(*day);
  }
  if (days.size() < 2) {
    observer.noHalves = "too few days";
    return;
  }
  const Day middle = *std::next(days.begin(), static_cast<std::ptrdiff_t>(days.size() / 2));
  PooledAgreement before;
  PooledAgreement after;
  for (const StudyPair& pair : study.pairs) {
    const auto day = DayOfPair(pair);
    if (day && IsOf(pair, observer.key)) (*day < middle ? before : after).Add(pair.agreement);
  }
  Mean earlier;
  Mean later;
  for (std::size_t i = 0; i < before.codes.size(); ++i) {
    const auto kappaBefore = Kappa(before.codes[i].table);
    const auto kappaAfter = Kappa(after.codes[i].table);
    if (!CountsInMean(before.codes[i]) || !kappaBefore || !kappaAfter) continue;
    earlier.Add(*kappaBefore);
    later.Add(*kappaAfter);
  }
  observer.earlier = earlier.Value();
  observer.later = later.Value();
  if (!observer.later) observer.noHalves = "not in both halves";
}

/// Who drifts comes first, the one whose kappa has fallen most; then, and where none has fallen,
/// who agrees least. Who has no figure is last.
bool AgreesLess(const ObserverAgreement& a, const ObserverAgreement& b) {
  const double aFall = std::min(0.0, a.Change().value_or(0));
  const double bFall = std::min(0.0, b.Change().value_or(0));
  if (aFall != bFall) return aFall < bFall;
  if (!a.meanKappa || !b.meanKappa) return a.meanKappa.has_value() && !b.meanKappa;
  return *a.meanKappa < *b.meanKappa;
}

}  // namespace

std::optional<double> ObserverAgreement::Change() const {
  return earlier && later ? std::optional(*later - *earlier) : std::nullopt;
}

std::vector<ObserverAgreement> ObserversOf(const AgreementStudy& study) {
  std::vector<ObserverAgreement> observers;
  for (const auto& [key, pairs] : study.observers) {
    ObserverAgreement observer{.key = key,
                               .observer = &pairs,
                               .meanKappa = MeanKappa(pairs.pooled),
                               .noMean = {},
                               .earlier = {},
                               .later = {},
                               .noHalves = {}};
    const bool hasPairs = std::ranges::any_of(pairs.pooled.codes, [](const CodeAgreement& codes) {
      return CountsInMean(codes) && codes.table.Total() > 0;
    });
    observer.noMean = NameOf(hasPairs ? Undefined::oneCode : Undefined::noPairs);
    SetHalves(study, observer);
    observers.push_back(std::move(observer));
  }
  std::ranges::stable_sort(observers, AgreesLess);
  return observers;
}

std::vector<KappaCourse> CoursesOf(const AgreementStudy& study,
                                   std::optional<std::size_t> dimension) {
  std::vector<KappaCourse> courses;
  for (const auto& [key, pairs] : study.observers) {
    KappaCourse course{.observer = pairs.name, .points = {}};
    for (std::size_t i = 0; i < study.pairs.size(); ++i) {
      const StudyPair& pair = study.pairs[i];
      if (!IsOf(pair, key)) continue;
      const Agreement& agreement = pair.agreement;
      const auto kappa =
          Kappa(dimension ? agreement.codes[*dimension].table : agreement.activities.table);
      const auto day = DayOfPair(pair);
      if (!kappa) {
        ++course.undefined;
      } else if (!day) {
        ++course.undated;
      } else {
        course.points.push_back({.day = *day, .kappa = *kappa, .pair = i});
      }
    }
    std::ranges::stable_sort(course.points, {}, &KappaOfDay::day);
    courses.push_back(std::move(course));
  }
  return courses;
}

}  // namespace orvex
