#include "recovery/unsaved_files.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "desk/screens.h"
#include "model/program.h"
#include "recovery/kept_content.h"
#include "recovery/remembered_folders.h"
#include "recovery/unsaved_changes.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

bool HasExtension(const fs::path& file, const char* lower, const char* upper) {
  return file.extension() == lower || file.extension() == upper;
}

bool IsSurvey(const fs::path& file) {
  return HasExtension(file, ".sur", ".SUR");
}

bool IsFieldNotes(const fs::path& file) {
  return HasExtension(file, ".nte", ".NTE");
}

/// The files beside which something is kept: a class is kept beside no file of these kinds.
std::vector<fs::path> FilesWithChanges(const Services& services) {
  std::vector<fs::path> kept;
  for (const char* kind : {"EPS", "NTE", "SUR"}) {
    std::ranges::move(KeptPaths(services.program.DataPath / kind), std::back_inserter(kept));
  }
  for (const fs::path& folder : RememberedFolders(services.programFolder)) {
    std::ranges::move(KeptPathsIn(folder), std::back_inserter(kept));
  }
  for (fs::path& path : kept) path = fs::absolute(path).lexically_normal().replace_extension();
  std::erase_if(kept, [](const fs::path& file) {
    return !HasExtension(file, ".eps", ".EPS") && !IsSurvey(file) && !IsFieldNotes(file);
  });
  std::ranges::sort(kept);
  kept.erase(std::unique(kept.begin(), kept.end()), kept.end());
  return kept;
}

/// True when the form of `file` takes the menu's place.
bool TakeUp(const Services& services, const fs::path& file, EditNotes editNotes) {
  if (IsFieldNotes(file)) {
    editNotes(services, file, Unsaved::isTakenUp);
    return false;
  }
  // A survey is saved in the data folder.
  const fs::path before = std::exchange(services.program.DataPath, file.parent_path());
  const bool shown = IsSurvey(file) ? services.screens.ShowSurveyFile(file, Unsaved::isTakenUp)
                                    : services.screens.ShowEpisodeEditor(file, Unsaved::isTakenUp);
  if (shown) {
    services.screens.Close(Screen::mainMenu);
  } else {
    services.program.DataPath = before;
  }
  return shown;
}

Unfinished Offered(const Services& services, const fs::path& file, const UnsavedChanges& changes,
                   EditNotes editNotes) {
  const std::string since = ChangeOf(file, changes);
  return {.item = {.what = file.filename().string() + " has changes that were not saved",
                   .extent = "changed on " + changes.dateText + " at " + changes.timeText +
                             (since.empty() ? "" : "." + OneLine(since)),
                   .place = file.parent_path().string(),
                   .question = QuestionOfUnsaved(file, changes)},
          .goOn = [services, file, editNotes] { return TakeUp(services, file, editNotes); },
          .close = [services, file, changes] { DiscardUnsaved(services, file, changes); }};
}

}  // namespace

std::vector<Unfinished> UnsavedFiles(const Services& services, EditNotes editNotes) {
  std::vector<Unfinished> all;
  for (const fs::path& file : FilesWithChanges(services)) {
    if (const auto changes = FindUnsaved(services, file)) {
      all.push_back(Offered(services, file, *changes, editNotes));
    }
  }
  return all;
}

}  // namespace orvex
