#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agreement/activity_agreement.h"
#include "agreement/code_agreement.h"
#include "agreement/observed_class.h"
#include "agreement/question_pairs.h"
#include "agreement/survey_agreement.h"
#include "model/program.h"
#include "reports/asked_question.h"

namespace orvex {

/// How many seconds the second observer began after the first, and how that is known.
struct Offset {
  enum class From {
    log,    ///< from the begin of both session logs
    given,  ///< the user stated it
    start,  ///< not known: both are taken to have begun at the same time
  };
  int seconds = 0;
  From from = From::start;
};
/// "log", "given", "start".
std::string_view NameOf(Offset::From from);
/// The offset of two classes. `given` is what the user stated, if anything. Logs of different days
/// tell it only where they were begun around midnight, less than half a day apart.
Offset OffsetOf(const ObservedClass& first, const ObservedClass& second, std::optional<int> given);

/// Seconds by which two observers may be apart and still have seen the same.
inline constexpr int kUsualTolerance = 5;
inline constexpr int kMostTolerance = 600;
/// Offsets beyond this many seconds, either way, are refused.
inline constexpr int kMostOffset = 43200;

/// How two observations are to be compared.
struct ComparisonOptions {
  int tolerance = kUsualTolerance;
  std::optional<int> offset = {};  ///< nothing: as the logs say
};

/// How far two observers agree on a class.
struct Agreement {
  /// Who compared, and when: of the two observations.
  struct Observer {
    std::string file;  ///< "5-12-3.eps"
    Identity identity;
    std::string date;  ///< "mm-dd-yyyy"
  };
  Observer first;
  Observer second;
  Offset offset;
  double overlap = 0;  ///< for how many whole seconds both observed
  ActivityAgreement activities;
  BoundaryAgreement boundaries;
  std::size_t firstQuestions = 0;
  std::size_t secondQuestions = 0;
  QuestionPairs pairs;
  bool pairsGiven = false;           ///< the pairs are a person's, not made from the words
  std::vector<CodeAgreement> codes;  ///< in the order of ComparedDimensions()
  RespondentAgreement respondent;
  /// The class's mean of each off-task category, of the first observer and the second.
  OfftaskAverages firstOfftask{};
  OfftaskAverages secondOfftask{};
  std::optional<SurveyAgreement> survey;  ///< nothing where either has none
  /// Sentences that say what is unusual about the two: different days, no time in common.
  std::vector<std::string> remarks;
  /// And about each file, with its name: what was doubtful in it, or that it could not be read.
  std::vector<std::string> fileRemarks;

  std::size_t BothQuestions() const;
  /// Twice the questions of both of all questions; nothing without questions.
  std::optional<double> QuestionShare() const;
  /// All remarks: about the two, then about their files.
  std::vector<std::string> AllRemarks() const;
};

/// The questions of two observers in their order. They point into the two classes.
struct AskedQuestions {
  std::vector<AskedQuestion> first;
  std::vector<AskedQuestion> second;
};
AskedQuestions QuestionsOf(const ObservedClass& first, const ObservedClass& second);

/// Compares two observations of a class, with the pairs that a person made of their `questions`;
/// without such pairs, they are made from what was written down.
Agreement Compare(const ObservedClass& first, const ObservedClass& second,
                  const AskedQuestions& questions, const ComparisonOptions& options,
                  std::optional<QuestionPairs> given = {});

}  // namespace orvex
