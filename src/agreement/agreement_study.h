#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "agreement/agreement.h"
#include "agreement/class_figures.h"
#include "agreement/disagreement.h"
#include "study/problem.h"

namespace orvex {

/// Two observations of one class, compared.
struct StudyPair {
  std::filesystem::path first;  ///< the episode files
  std::filesystem::path second;
  Agreement agreement;
  std::vector<Disagreement> disagreements = {};
  ClassFigures firstFigures{};
  ClassFigures secondFigures{};
};

/// The tables of several pairs added up.
struct PooledAgreement {
  std::size_t pairs = 0;
  std::vector<CodeAgreement> codes;  ///< in the order of ComparedDimensions()
  ActivityAgreement activities;
  std::size_t firstQuestions = 0;
  std::size_t secondQuestions = 0;
  std::size_t bothQuestions = 0;

  PooledAgreement();
  void Add(const Agreement& pair);
  /// Adds the pair with the second observer as the first.
  void AddSwapped(const Agreement& pair);
  /// Twice the questions of both of all questions; nothing without questions.
  std::optional<double> QuestionShare() const;
};

/// The intraclass correlation of a figure that two observers gave the same classes.
struct Icc {
  std::size_t pairs = 0;
  std::size_t leftOut = 0;  ///< pairs in which the figure is not defined for either observer
  std::optional<double> value = {};
  std::string undefined = {};  ///< why there is no value: "fewer than 3 pairs", "no variance"
};

/// The pairs of one observer, who is the first in all of them, whoever the other is.
struct ObserverPairs {
  std::string name;  ///< the initials as they were written first; see ShownInitials
  PooledAgreement pooled;
};

/// How far the observers of a study agree.
struct AgreementStudy {
  std::vector<StudyPair> pairs;
  PooledAgreement pooled;
  std::map<std::string, ObserverPairs> observers;  ///< by ObserverKey
  std::array<Icc, kClassFigures> icc;              ///< by ClassFigure
  /// Files that could not be read, and were left out: observations, and surveys of some.
  std::vector<Problem> unread;
  std::vector<Problem> warnings;  ///< what was doubtful in files that were read
  /// What else was left out, and why: observations without a partner, and those that come twice.
  std::vector<std::string> remarks;

  /// What an observer of one of the pairs is called in all of the study.
  const std::string& NameOf(const Agreement::Observer& observer) const;
};
/// Pools the pairs.
AgreementStudy StudyOf(std::vector<StudyPair> pairs);

/// How far the comparison of a study has come: first it looks at all files, then it compares the
/// pairs among them, those with a file that can no longer be read as well.
struct StudyProgress {
  enum class Step { finding, comparing };
  Step step = Step::finding;
  std::size_t done = 0;  ///< files, then pairs
  std::size_t of = 0;
};

/// Compares every two observations of the same school, class and date among episode `files`, the
/// lower observation number first, on all cores. A file that is named twice counts once. What
/// cannot be read is left out and told. `stops` is asked now and then and may end the work early;
/// `progress` is told how far it is; both may be empty.
AgreementStudy CompareAll(const std::vector<std::filesystem::path>& files,
                          const ComparisonOptions& options, const std::function<bool()>& stops = {},
                          const std::function<void(const StudyProgress&)>& progress = {});

}  // namespace orvex
