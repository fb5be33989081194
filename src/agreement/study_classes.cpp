#include "agreement/study_classes.h"

#include <algorithm>
#include <set>
#include <span>
#include <system_error>
#include <tuple>
#include <utility>

#include "agreement/observer_name.h"
#include "model/texts.h"
#include "store/eps_reader.h"
#include "store/paths.h"
#include "store/printable_text.h"
#include "study/found_files.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

bool IsCopy(const FoundObservation& one, const FoundObservation& other) {
  return one.number == other.number && one.observer == other.observer;
}

/// The files of the observations of one class. Tells of copies, and of one that is alone.
ClassFiles FilesOf(std::span<const FoundObservation> observations,
                   std::vector<std::string>& remarks) {
  const auto nameOf = [](const FoundObservation& found) { return Printable(found.file.native()); };
  if (observations.size() == 1) {
    remarks.push_back(Say(Text::noSecondObservation, {nameOf(observations.front())}));
  }
  ClassFiles files;
  for (auto observation = observations.begin(); observation != observations.end(); ++observation) {
    const auto same = std::find_if(
        observations.begin(), observation,
        [&](const FoundObservation& earlier) { return IsCopy(*observation, earlier); });
    if (same == observation) {
      files.push_back(observation->file);
    } else {
      remarks.push_back(Say(Text::sameObservation, {nameOf(*observation), nameOf(*same)}));
    }
  }
  return files;
}

}  // namespace

std::vector<std::filesystem::path> WithoutRepeats(const std::vector<std::filesystem::path>& files) {
  std::set<std::filesystem::path> known;
  std::vector<std::filesystem::path> without;
  for (const std::filesystem::path& file : files) {
    std::error_code unknown;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(file, unknown);
    if (known.insert(unknown ? file : whole).second) without.push_back(file);
  }
  return without;
}

FoundObservation FindObservation(const std::filesystem::path& file) {
  ReadingWithWarnings events({});  // the warnings come when the class is compared
  const EpsHeader header = ReadEpsFile(file, events).header;
  Identity identity = header.identity;
  NormaliseNumbers(identity);
  return {file, ClassKeyOf(identity, header.ObservDate), NameKey(identity.ObservNum),
          ObserverKey(identity)};
}

std::vector<ClassFiles> ClassesOf(std::vector<FoundObservation> found,
                                  std::vector<std::string>& remarks) {
  std::ranges::stable_sort(found, {}, [](const FoundObservation& observation) {
    return std::tie(observation.ofClass, observation.number);
  });
  std::vector<ClassFiles> classes;
  for (auto first = found.begin(); first != found.end();) {
    const auto end = std::find_if(first, found.end(), [&](const FoundObservation& observation) {
      return observation.ofClass != first->ofClass;
    });
    ClassFiles files = FilesOf({first, end}, remarks);
    if (files.size() > 1) classes.push_back(std::move(files));
    first = end;
  }
  return classes;
}

}  // namespace orvex
