#include "agreement/agreement_study.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "agreement/comparison.h"
#include "agreement/icc.h"
#include "agreement/share_of_both.h"
#include "model/texts.h"
#include "store/eps_reader.h"
#include "store/paths.h"
#include "store/printable_text.h"
#include "study/class_key.h"
#include "study/found_files.h"
#include "study/ordered_reading.h"
#include "study/reading_with_warnings.h"

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

/// An observation, as far as it says which class it is of.
struct FoundClass {
  std::filesystem::path file;
  ClassKey ofClass;
  std::string number;  ///< key of the observation number
  std::string initials;

  /// True for a copy: not a second observer's.
  bool IsCopyOf(const FoundClass& other) const {
    return number == other.number && initials == other.initials;
  }
};

/// Something that was made from files, or why it could not be.
template <typename Value>
struct FromFiles {
  std::optional<Value> value = {};
  std::optional<Problem> problem = {};
};

FromFiles<FoundClass> FindClass(const std::filesystem::path& file) {
  FromFiles<FoundClass> found;
  found.problem = ProblemOf(file, [&] {
    ReadingWithWarnings events({});  // the warnings come when the class is compared
    EpsHeader header = ReadEpsFile(file, events).header;
    Identity& identity = header.identity;
    NormaliseNumbers(identity);
    found.value = {file, ClassKeyOf(identity, header.ObservDate), NameKey(identity.ObservNum),
                   identity.Initials};
  });
  return found;
}

FromFiles<StudyPair> ComparePair(const std::filesystem::path& firstFile,
                                 const std::filesystem::path& secondFile,
                                 const ComparisonOptions& options) {
  FromFiles<StudyPair> compared;
  ObservedClass first;
  ObservedClass second;
  compared.problem = ProblemOf(firstFile, [&] { first = ReadObservedClass(firstFile); });
  if (!compared.problem) {
    compared.problem = ProblemOf(secondFile, [&] { second = ReadObservedClass(secondFile); });
  }
  if (compared.problem) return compared;
  const Comparison comparison(std::move(first), std::move(second), options);
  compared.value = {firstFile,
                    secondFile,
                    comparison.Result(),
                    DisagreementsOf(comparison),
                    FiguresOf(comparison.First().observation),
                    FiguresOf(comparison.Second().observation)};
  return compared;
}

/// Makes `count` values on all cores, and in their order hands them to `take`. Problems with files
/// go to `unread`. `stops` ends the work early.
template <typename Value, typename Take>
void MakeAll(std::size_t count, const std::function<FromFiles<Value>(std::size_t)>& make,
             const std::function<bool()>& stops, std::vector<Problem>& unread, const Take& take) {
  OrderedReading<FromFiles<Value>> making(count, make);
  while (!(stops && stops())) {
    auto made = making.Take();
    if (!made) return;
    if (made->problem) unread.push_back(*std::move(made->problem));
    if (made->value) take(*std::move(made->value));
  }
}

using FilePair = std::pair<std::filesystem::path, std::filesystem::path>;

/// Adds every two of the observations of one class, which are in the order of their numbers. Tells
/// of copies, and of one that is alone.
void AddPairs(std::vector<FoundClass> observations, std::vector<FilePair>& pairs,
              std::vector<std::string>& remarks) {
  const auto nameOf = [](const FoundClass& found) { return Printable(found.file.native()); };
  if (observations.size() == 1) {
    remarks.push_back(Say(Text::noSecondObservation, {nameOf(observations.front())}));
  }
  for (auto second = observations.begin(); second != observations.end();) {
    const auto same = std::find_if(observations.begin(), second, [&](const FoundClass& first) {
      return second->IsCopyOf(first);
    });
    if (same != second) {
      remarks.push_back(Say(Text::sameObservation, {nameOf(*second), nameOf(*same)}));
      second = observations.erase(second);
    } else {
      ++second;
    }
  }
  for (auto first = observations.begin(); first != observations.end(); ++first) {
    for (auto second = first + 1; second != observations.end(); ++second) {
      pairs.emplace_back(first->file, second->file);
    }
  }
}

std::vector<FilePair> PairsOf(std::vector<FoundClass> found, std::vector<std::string>& remarks) {
  std::ranges::stable_sort(found, {}, [](const FoundClass& observation) {
    return std::tie(observation.ofClass, observation.number);
  });
  std::vector<FilePair> pairs;
  for (auto first = found.begin(); first != found.end();) {
    const auto end = std::find_if(first, found.end(), [&](const FoundClass& observation) {
      return observation.ofClass != first->ofClass;
    });
    AddPairs({first, end}, pairs, remarks);
    first = end;
  }
  return pairs;
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

AgreementStudy StudyOf(std::vector<StudyPair> pairs) {
  AgreementStudy study;
  for (const StudyPair& pair : pairs) {
    const Agreement& agreement = pair.agreement;
    const std::string& first = agreement.first.identity.Initials;
    const std::string& second = agreement.second.identity.Initials;
    study.pooled.Add(agreement);
    study.observers[first].Add(agreement);
    if (second != first) study.observers[second].AddSwapped(agreement);
  }
  for (std::size_t figure = 0; figure < study.icc.size(); ++figure) {
    study.icc[figure] = IccOf(pairs, figure);
  }
  study.pairs = std::move(pairs);
  return study;
}

AgreementStudy CompareAll(const std::vector<std::filesystem::path>& files,
                          const ComparisonOptions& options, const std::function<bool()>& stops,
                          const std::function<void(std::size_t, std::size_t)>& progress) {
  std::vector<Problem> unread;
  std::vector<std::string> remarks;
  std::vector<FoundClass> found;
  MakeAll<FoundClass>(
      files.size(), [&](std::size_t file) { return FindClass(files[file]); }, stops, unread,
      [&](FoundClass observation) { found.push_back(std::move(observation)); });
  // Who has no partner is known once all have been found.
  if (stops && stops()) found.clear();
  const std::vector<FilePair> toCompare = PairsOf(std::move(found), remarks);
  std::vector<StudyPair> pairs;
  MakeAll<StudyPair>(
      toCompare.size(),
      [&](std::size_t pair) {
        return ComparePair(toCompare[pair].first, toCompare[pair].second, options);
      },
      stops, unread,
      [&](StudyPair pair) {
        pairs.push_back(std::move(pair));
        if (progress) progress(pairs.size(), toCompare.size());
      });
  AgreementStudy study = StudyOf(std::move(pairs));
  study.unread = std::move(unread);
  study.remarks = std::move(remarks);
  return study;
}

}  // namespace orvex
