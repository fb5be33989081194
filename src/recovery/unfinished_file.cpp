#include "recovery/unfinished_file.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

#include "desk/prompter.h"
#include "model/program.h"
#include "model/texts.h"
#include "recovery/kept_content.h"
#include "recovery/recovery_file.h"
#include "recovery/remembered_folders.h"
#include "store/checksum.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// A file that was found, and the changes that are kept of it.
struct Found {
  fs::path file;
  KeptChanges changes;
  /// What has happened to the file since the changes were made, as a paragraph for a question; ""
  /// when the file is unchanged.
  std::string since;
};

/// The bytes of `file`; nothing when it is gone or cannot be read.
std::optional<std::string> BytesOf(const fs::path& file) {
  try {
    return ReadFile(file);
  } catch (const FileError&) {
    return std::nullopt;
  }
}

std::string ChangeOf(const fs::path& file, const std::optional<std::string>& bytes,
                     std::uint64_t base) {
  // A file that was never saved had no bytes.
  if (Checksum(bytes.value_or("")) == base) return "";
  std::error_code unknown;
  const bool gone = !bytes && !fs::exists(file, unknown);
  const Text unread = gone ? Text::fileGone : Text::fileUnreadableNow;
  return std::string("\n\n") + Say(bytes ? Text::fileChangedSince : unread);
}

void Remove(const Services& services, const fs::path& file, const KeptChanges& changes) {
  RecoveryFile kept(services.storage);
  kept.TakeUp(RecoveryPathBeside(file), changes.number);
  kept.Remove();
}

/// The unsaved changes kept beside `file`, unless another Orvex is working with them. Changes that
/// turn out to be saved already are removed. Tells the user when the changes cannot be read.
std::optional<Found> Find(const Services& services, const fs::path& file) {
  const fs::path path = RecoveryPathBeside(file);
  if (!IsUnfinishedAt(path)) return std::nullopt;
  std::string cause;
  try {
    const KeptChanges changes = ReadKeptChanges(file);
    const std::optional<std::string> bytes = BytesOf(file);
    if (changes.bytes && changes.bytes != bytes) {
      return Found{.file = file, .changes = changes, .since = ChangeOf(file, bytes, changes.base)};
    }
    Remove(services, file, changes);
    return std::nullopt;
  } catch (const FileError& error) {
    cause = error.what();
  } catch (const FormatError& error) {
    cause = path.string() + ": " + error.what();
  }
  services.prompter.Tell(Say(Text::changesUnreadable), cause);
  return std::nullopt;
}

/// The question whether to take the changes up (Yes), discard them (No) or leave them (Cancel).
Message Question(const Found& found) {
  const KeptChanges& changes = found.changes;
  return {.text = Say(Text::changesNotSaved,
                      {found.file.filename().string(), changes.dateText, changes.timeText}) +
                  found.since,
          .buttons = Buttons::yesNoCancel,
          .defaultAnswer = Answer::yes,
          .captions = {{Answer::yes, Say(Text::takeUpChanges)},
                       {Answer::no, Say(Text::discardChanges)},
                       {Answer::cancel, Say(Text::leaveChanges)}}};
}

/// False when the changes stay and the user has been told why.
bool Discard(const Services& services, const Found& found) {
  try {
    Remove(services, found.file, found.changes);
    return true;
  } catch (const FileError& error) {
    services.prompter.Tell(Say(Text::changesNotDiscarded), error.what());
    return false;
  }
}

bool HasExtension(const fs::path& file, const char* lower, const char* upper) {
  return file.extension() == lower || file.extension() == upper;
}

bool IsSurvey(const fs::path& file) {
  return HasExtension(file, ".sur", ".SUR");
}

bool IsFieldNotes(const fs::path& file) {
  return HasExtension(file, ".nte", ".NTE");
}

/// The episode, survey and field-notes files beside which something is kept. What is kept of a
/// class lies beside none of these.
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

/// True when the form for `file` takes the menu's place.
bool TakeUp(const Services& services, const fs::path& file) {
  if (IsFieldNotes(file)) {
    services.screens.ShowFieldNotes(file, Kept::areTakenUp);
    return false;
  }
  // A survey is saved in the data folder, so the folder of the file must become that.
  const fs::path before = std::exchange(services.program.DataPath, file.parent_path());
  const bool shown = IsSurvey(file) ? services.screens.ShowSurveyFile(file, Kept::areTakenUp)
                                    : services.screens.ShowEpisodeEditor(file, Kept::areTakenUp);
  if (shown) {
    services.screens.Close(Screen::mainMenu);
  } else {
    services.program.DataPath = before;
  }
  return shown;
}

Unfinished Offered(const Services& services, const Found& found) {
  return {
      .item = {.what = Say(Text::hasChanges, {found.file.filename().string()}),
               .extent = Say(Text::changedAt, {found.changes.dateText, found.changes.timeText}) +
                         (found.since.empty() ? "" : "." + OneLine(found.since)),
               .place = found.file.parent_path().string(),
               .question = Question(found)},
      .takeUp = [services, file = found.file] { return TakeUp(services, file); },
      .close = [services, found] { Discard(services, found); }};
}

}  // namespace

std::vector<Unfinished> UnfinishedFiles(const Services& services) {
  std::vector<Unfinished> all;
  for (const fs::path& file : FilesWithChanges(services)) {
    if (const auto found = Find(services, file)) all.push_back(Offered(services, *found));
  }
  return all;
}

std::string TakenUp::FileBytes(const fs::path& file) const {
  std::error_code unknown;
  return changes && !fs::exists(file, unknown) ? "" : ReadFile(file);
}

OpenedFile TakenUp::Opened(const std::string& bytes) const {
  OpenedFile opened(bytes);
  if (changes && changes->base != Checksum(bytes)) opened.Distrust();
  return opened;
}

TakenUp TakeUpChanges(const Services& services, const fs::path& file, Kept kept) {
  const std::optional<Found> found = Find(services, file);
  if (!found) return {};
  const Answer answer =
      kept == Kept::areTakenUp ? Answer::yes : services.prompter.Ask(Question(*found));
  if (answer == Answer::yes) return {.changes = found->changes};
  return {.isLeft = answer != Answer::no || !Discard(services, *found)};
}

}  // namespace orvex
