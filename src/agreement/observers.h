#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agreement/agreement_study.h"

namespace orvex {

/// What an observer's agreement with the others comes to, and whether it changes. All of these are
/// means of kappa over the dimensions that are coded by letters, as far as it is defined.
struct ObserverAgreement {
  std::string key;                          ///< ObserverKey
  const ObserverPairs* observer = nullptr;  ///< in the study
  std::optional<double> meanKappa;
  std::string_view noMean;  ///< why there is none, if so: "one code only"
  /// In the earlier and in the later half of the days, over the dimensions that both define. Of an
  /// odd number of days the middle one is in the later half.
  std::optional<double> earlier;
  std::optional<double> later;
  std::string_view noHalves;  ///< why there are none, if so: "too few days"

  /// By how much kappa has risen from the earlier half to the later, from -2 to 2; nothing without
  /// both.
  std::optional<double> Change() const;
};
/// The observers of a study: first those whose kappa has fallen, the one who fell most ahead, then
/// the others, the one who agrees least ahead. They point into `study`.
std::vector<ObserverAgreement> ObserversOf(const AgreementStudy& study);

/// Kappa of a pair, and the day of its class.
struct KappaOfDay {
  std::chrono::sys_days day;
  double kappa = 0;
  std::size_t pair = 0;  ///< its position in the study
};
/// How an observer agreed with others as time went on.
struct KappaCourse {
  std::string observer;            ///< ObserverPairs::name
  std::vector<KappaOfDay> points;  ///< by day
  std::size_t undefined = 0;       ///< pairs without a kappa
  std::size_t undated = 0;         ///< pairs with a kappa whose date is no date
};
/// The courses of a study's observers, by their initials, in a dimension (a position in
/// ComparedDimensions()), or in the activities second by second.
std::vector<KappaCourse> CoursesOf(const AgreementStudy& study,
                                   std::optional<std::size_t> dimension);

}  // namespace orvex
