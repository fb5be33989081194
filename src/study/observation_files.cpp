#include "study/observation_files.h"

#include <algorithm>
#include <utility>

#include "store/claim.h"
#include "study/found_files.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Adds the files that the search in the tree of one kind could not find.
void AddCompanions(ObservationFiles& files) {
  const fs::path first = FirstOf(files.paths);
  for (std::size_t kind = 0; kind < files.paths.size(); ++kind) {
    if (!files.paths[kind].empty()) continue;
    files.paths[kind] = Companion(first, static_cast<FileKind>(kind)).string();
  }
}

}  // namespace

const std::string& FirstOf(const ObservationPaths& paths) {
  const auto* const first = std::ranges::find_if_not(paths, &std::string::empty);
  // Where none is there, all are as empty as the last.
  return first == paths.end() ? paths.back() : *first;
}

FoundObservations FindObservations(const fs::path& folder, const std::function<bool()>& stops) {
  FoundFiles found = FindFiles(folder, stops);
  std::vector<ObservationFiles> observations;
  std::vector<ObservationFiles> seconds;
  for (FoundFile& file : found.files) {
    if (observations.empty() || observations.back().name != file.name) {
      observations.push_back({std::move(file.name), std::move(file.key), {}, {}});
    }
    std::string& path = observations.back().paths[static_cast<std::size_t>(file.kind)];
    if (path.empty()) {
      path = std::move(file.path);
    } else if (file.kind == FileKind::episodes) {
      std::string name = fs::path(file.path).lexically_relative(folder).string();
      seconds.push_back({std::move(name), "", {std::move(file.path)}, {}});
    } else {
      observations.back().further.push_back(std::move(file.path));
    }
  }
  if (IsInTree(folder)) {
    for (ObservationFiles& files : observations) AddCompanions(files);
  }
  if (!seconds.empty()) {
    for (ObservationFiles& second : seconds) {
      second.key = NameKey(second.name);
      const bool isTaken =
          std::ranges::binary_search(observations, second.key, {}, &ObservationFiles::key);
      if (isTaken) second.key = NameKey(second.name.insert(0, "./"));
    }
    std::ranges::move(seconds, std::back_inserter(observations));
    std::ranges::sort(observations, {}, &ObservationFiles::key);
  }
  return {std::move(observations), std::move(found.unread)};
}

ObservationStamps StampsOf(const ObservationFiles& files) {
  ObservationStamps stamps;
  std::ranges::transform(files.paths, stamps.files.begin(), StampOf);
  const std::string& kept = files.Path(FileKind::keptClass);
  stamps.isRunning = !kept.empty() && IsClaimed(kept);
  return stamps;
}

}  // namespace orvex
