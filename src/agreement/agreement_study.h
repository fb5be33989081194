#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agreement/agreement.h"
#include "store/file_error.h"

namespace orvex {

/// Figures of a class that are analysed class by class. Each is nothing where it is not defined.
enum class ClassFigure {
  questionsPerMinute,
  authenticTeacher,  ///< share of authentic ones among the teacher's questions
  uptake,            ///< share with uptake T or A among those with a response
  higherLevel,       ///< share among the teacher's questions
  timeManagement,    ///< shares of time, by activity group
  timeInstruction,
  timeTest,
  timeSeatwork,
  offtask,  ///< mean of question/answer; not defined where it is 0
};
inline constexpr std::size_t kClassFigures = 9;
/// "questions_per_minute".
std::string_view NameOf(ClassFigure figure);
/// "Questions per minute".
std::string_view LabelOf(ClassFigure figure);
using ClassFigures = std::array<std::optional<double>, kClassFigures>;
ClassFigures FiguresOf(const EpsObservation& observation);

/// The intraclass correlation ICC(A,1): two-way, absolute agreement, single measurement (McGraw and
/// Wong, 1996), of values that two observers gave the same classes.
struct Icc {
  std::size_t pairs = 0;
  std::size_t leftOut = 0;  ///< pairs in which the figure is not defined for either observer
  std::optional<double> value = {};
  std::string undefined = {};  ///< why there is no value: "fewer than 3 pairs", "no variance"
};
/// ICC(A,1) of a table with a row for each thing and as many ratings in each.
std::optional<double> IccA1(const std::vector<std::vector<double>>& ratings);

/// Two observations of one class, compared.
struct StudyPair {
  std::filesystem::path first;  ///< the episode files
  std::filesystem::path second;
  Agreement agreement;
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

  void Add(const Agreement& pair);
};

/// How far the observers of a study agree.
struct AgreementStudy {
  std::vector<StudyPair> pairs;
  PooledAgreement pooled;
  std::map<std::string, PooledAgreement> observers;  ///< by initials
  std::array<Icc, kClassFigures> icc;                ///< by ClassFigure
  /// What was left out, and why: files that could not be read, observations without a partner.
  std::vector<FileError> unread;
  std::vector<std::string> remarks;
};
/// Pools the pairs.
AgreementStudy StudyOf(std::vector<StudyPair> pairs);

/// Compares every two observations of the same school, class and date among episode `files`, the
/// lower observation number first, on all cores. What cannot be read is left out and told. `stops`
/// is asked now and then and may end the work early; `progress` is told how many of how many pairs
/// are done; both may be empty.
AgreementStudy CompareAll(
    const std::vector<std::filesystem::path>& files, const ComparisonOptions& options,
    const std::function<bool()>& stops = {},
    const std::function<void(std::size_t done, std::size_t of)>& progress = {});

}  // namespace orvex
