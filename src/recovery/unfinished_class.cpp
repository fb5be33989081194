#include "recovery/unfinished_class.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "desk/prompter.h"
#include "desk/screens.h"
#include "model/clock.h"
#include "model/limits.h"
#include "model/program.h"
#include "model/texts.h"
#include "model/time_of_day.h"
#include "recovery/kept_class.h"
#include "recovery/kept_content.h"
#include "recovery/recovery_file.h"
#include "recovery/remembered_folders.h"
#include "running/store_class.h"
#include "store/claim.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/paths.h"
#include "store/session_log.h"
#include "store/storage.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// A class that was found, and the path it is kept at.
struct Found {
  fs::path path;
  KeptClass kept;
};

/// Reads the class kept at `path`. When that fails, returns nothing and adds the reason to
/// `causes`.
std::optional<Found> Read(const fs::path& path, std::string& causes) {
  try {
    return Found{.path = path, .kept = ReadKeptClass(path)};
  } catch (const FileError& error) {
    causes += (causes.empty() ? "" : "\n") + std::string(error.what());
  } catch (const FormatError& error) {
    causes += (causes.empty() ? "" : "\n") + path.string() + ": " + error.what();
  }
  return std::nullopt;
}

/// Reads the classes kept at `paths`, and tells the user about those that cannot be read.
std::vector<Found> ReadAll(const Services& services, const std::vector<fs::path>& paths) {
  std::vector<Found> all;
  std::string causes;
  for (const fs::path& path : paths) {
    if (auto found = Read(path, causes)) all.push_back(*std::move(found));
  }
  if (!causes.empty()) {
    services.prompter.Tell(Say(Text::classUnreadable), causes);
  }
  return all;
}

/// The newer copy of the class `found`, under the numbers that the class has got since; null when
/// there is none.
const Found* LaterTwin(const std::vector<Found>& all, const Found& found) {
  const auto twin = std::ranges::find_if(all, [&](const Found& other) {
    return !found.kept.running.token.empty() &&
           other.kept.running.token == found.kept.running.token &&
           other.kept.number > found.kept.number &&
           DataFolderOf(other.path) == DataFolderOf(found.path);
  });
  return twin == all.end() ? nullptr : &*twin;
}

/// Removes what is kept at `path` of a class that is also kept at `later`. Its log, if not renamed
/// yet, gets the name that belongs to `later`.
void DropTwin(const Services& services, const fs::path& path, const fs::path& later) {
  const auto log = [](fs::path kept) { return kept.replace_extension(".bak"); };
  std::error_code unknown;
  if (fs::exists(log(path), unknown) && !fs::exists(log(later), unknown)) {
    services.storage.Rename(log(path).c_str(), log(later).c_str());
  }
  for (const fs::path& file : FilesKeptAt(path)) services.storage.Unlink(file.c_str());
  SyncFolder(services.storage, path.parent_path());
}

/// A program that ended while it was renaming a class leaves the class twice: only the newer copy
/// stays. Classes that another program has claimed are left out, too.
void DropTwins(const Services& services, std::vector<Found>& all) {
  const std::vector<Found> found = all;
  std::erase_if(all, [&](const Found& one) {
    const Found* later = LaterTwin(found, one);
    if (later && !IsClaimed(one.path)) DropTwin(services, one.path, later->path);
    return later || IsClaimed(one.path);
  });
  // Read those that stay again: each takes its numbers from its log, which may just have been
  // renamed.
  for (Found& one : all) {
    std::string causes;
    if (auto again = Read(one.path, causes)) one = *std::move(again);
  }
}

/// The folders in which classes may be kept: the data folder first, and none twice.
std::vector<fs::path> FoldersToLookIn(const Services& services) {
  std::vector<fs::path> folders = RememberedFolders(services.programFolder);
  folders.insert(folders.begin(), services.program.DataPath);
  std::vector<fs::path> found;
  for (const fs::path& folder : folders) {
    std::error_code gone;
    const fs::path real = fs::canonical(folder, gone);
    if (gone || std::ranges::find(found, real) != found.end()) continue;
    found.push_back(real);
  }
  return found;
}

/// How long ago the class was last kept, in seconds; 0 if the clock has been set back since.
std::int64_t Gap(const Services& services, const KeptClass& kept) {
  return std::max<std::int64_t>(0, services.clock.UnixSeconds() - kept.moment.unixSeconds);
}

std::string Amount(const KeptClass& kept) {
  return Say(Text::classAmount,
             {Counted(kept.program.Episodes.size(), Text::oneEpisode, Text::episodes),
              Counted(kept.Questions(), Text::oneQuestion, Text::questions)});
}

std::string Times(const KeptClass& kept) {
  return Say(Text::classTimes, {kept.program.StartTimeText, kept.moment.timeText});
}

/// What is missing of the class.
std::string StateOf(const KeptClass& kept) {
  return Say(kept.program.ClassStored ? Text::surveyNotStored : Text::classNotEnded,
             {kept.program.identity.ClassId(), kept.moment.dateText});
}

Message Question(const Services& services, const Found& found, const std::string& what) {
  const KeptClass& kept = found.kept;
  const bool stored = kept.program.ClassStored;
  constexpr std::int64_t kStillThatLesson = 2 * 60 * 60;
  std::string text = what + ".\n\n" + Say(Text::classObserved, {Times(kept), Amount(kept)});
  const fs::path folder = DataFolderOf(found.path);
  std::error_code unknown;
  if (!fs::equivalent(folder, services.program.DataPath, unknown)) {
    text += "\n\n" + Say(Text::classFolder, {folder.string()});
  }
  return {.text = std::move(text),
          .buttons = Buttons::yesNoCancel,
          .defaultAnswer = Gap(services, kept) < kStillThatLesson ? Answer::yes : Answer::cancel,
          .captions = {{Answer::yes, Say(stored ? Text::fillInSurvey : Text::goOnObserving)},
                       {Answer::no, Say(stored ? Text::closeWithoutSurvey : Text::closeClass)},
                       {Answer::cancel, Say(Text::leaveClass)}}};
}

UnfinishedItem ItemOf(const Services& services, const Found& found) {
  const KeptClass& kept = found.kept;
  const std::string what = StateOf(kept);
  return {.what = what,
          .extent = Times(kept) + ", " + Amount(kept),
          .place = DataFolderOf(found.path).string(),
          .question = Question(services, found, what)};
}

/// Opens the files that a running class needs. Throws FileError; what is kept of the class is then
/// as before.
void ReopenFiles(const Services& services, const KeptClass& kept, const fs::path& path) {
  services.recovery.TakeUp(path, kept.number);
  if (kept.program.ClassStored) return;  // its log is complete
  try {
    // If the class was just being renamed, what is kept of it follows the log.
    const fs::path folder = DataFolderOf(path);
    services.recovery.MoveTo(RecoveryPath(folder, kept.program.identity));
    services.log.File().TakeUp(BakPath(folder, kept.program.identity));
  } catch (const FileError&) {
    services.recovery.Leave();
    throw;
  }
  services.log.LogTakenUp();
  RememberFolder(services.storage, services.programFolder, DataFolderOf(path));
}

bool TakeUp(const Services& services, KeptClass kept, const fs::path& path) {
  try {
    ReopenFiles(services, kept, path);
  } catch (const FileError& error) {
    services.prompter.Tell(Say(Text::classNotTakenUp), error.what());
    return false;
  }
  // The time since then counts: the segment has been going on all the while.
  kept.running.ShiftTimes(services.clock.SecondsSinceMidnight() - kept.moment.secondsSinceMidnight -
                          static_cast<float>(Gap(services, kept)));
  kept.program.DataPath = DataFolderOf(path);
  services.program = std::move(kept.program);
  services.screens.ShowTakenUpClass(kept.running);
  services.screens.Close(Screen::mainMenu);
  return true;
}

/// Ends the running segment and its episode at the moment when the class was last kept. Field notes
/// that were being typed count as entered.
void EndLastEpisode(KeptClass& kept) {
  Episode& episode = kept.program.Episodes.back();
  RunningClass& running = kept.running;
  if (running.draftNotes) running.fieldNotes = *std::exchange(running.draftNotes, std::nullopt);
  if (running.ChosenActivity() != kNoActivity && !kept.SegmentEnded()) {
    episode.segments.push_back(
        running.Segment(SecondsSince(running.segmentStart, kept.moment.secondsSinceMidnight)));
  }
  if (!episode.questions.empty()) episode.offtask = AverageOf(running.offtaskEstimates);
}

/// Stores the question that was being entered. Returns what to tell the user about it; "" when
/// there was none.
std::string StoreDraft(KeptClass& kept) {
  std::vector<questionInfo>& questions = kept.program.Episodes.back().questions;
  if (kept.running.draft.IsEmpty() || questions.size() == kMostNumber) return "";
  questions.push_back(kept.running.DraftAsStored());
  kept.running.draft = {};
  return Say(Text::draftStored, {questions.size(), kept.running.curEpisode});
}

bool StoreEpisodes(const Services& services, KeptClass& kept) {
  const std::string ofDraft = StoreDraft(kept);
  EndLastEpisode(kept);
  Program& program = kept.program;
  EpsHeader header = {.identity = program.identity,
                      .ObservDate = kept.moment.dateText,
                      .StartTime = program.StartTimeText,
                      .ActivityOfftask = program.AverageOfftask()};
  const bool stored =
      StoreClass(services, Say(Text::dataNotWritten), header, program.Episodes, kept.running);
  program.identity = header.identity;
  if (!stored) return false;
  // From here on only the survey is missing, also when that is left for later.
  program.ClassStored = true;
  services.recovery.Keep(FormatMoment(kept.moment) + FormatRunning(program, kept.running));
  if (!ofDraft.empty()) {
    services.prompter.Tell(ofDraft, program.Episodes.back().questions.back().question);
  }
  return true;
}

/// Stores the survey, except that one nobody has filled in never replaces an existing file.
bool StoreItsSurvey(const Services& services, KeptClass& kept) {
  Identity& identity = kept.program.identity;
  std::error_code unknown;
  if (kept.running.survey == Survey{} &&
      fs::exists(SurPath(services.program.DataPath, identity), unknown)) {
    return true;
  }
  return StoreSurvey(services, identity, kept.running);
}

}  // namespace

std::string TextOf(const KeptClass& kept) {
  return StateOf(kept) + ". " + Say(Text::classObserved, {Times(kept), Amount(kept)});
}

bool CloseKeptClass(const Services& desk, KeptClass kept, const fs::path& path) {
  // Its files belong in the data folder where it was observed, whichever folder is in use now.
  kept.program.DataPath = DataFolderOf(path);
  const Services services = desk.With(kept.program);
  try {
    services.recovery.TakeUp(path, kept.number);
  } catch (const FileError& error) {
    services.prompter.Tell(Say(Text::classNotClosed), error.what());
    return false;
  }
  const bool stored =
      (kept.program.ClassStored || StoreEpisodes(services, kept)) && StoreItsSurvey(services, kept);
  if (!stored) {
    services.recovery.Leave();
    return false;
  }
  ForgetKept(services);
  return true;
}

namespace {

Unfinished Offered(const Services& services, const Found& found) {
  return {.item = ItemOf(services, found),
          .takeUp = [services, found] { return TakeUp(services, found.kept, found.path); },
          .close = [services, found] { CloseKeptClass(services, found.kept, found.path); }};
}

std::vector<Found> FindClasses(const Services& services, const std::vector<fs::path>& folders) {
  std::vector<fs::path> paths;
  for (const fs::path& folder : folders) {
    for (fs::path& path : KeptPaths(BakFolder(folder))) paths.push_back(std::move(path));
  }
  std::vector<Found> all = ReadAll(services, paths);
  DropTwins(services, all);
  return all;
}

}  // namespace

std::vector<Unfinished> UnfinishedClassAt(const Services& services, const fs::path& path) {
  std::vector<Unfinished> offered;
  for (const Found& found : FindClasses(services, {DataFolderOf(path)})) {
    if (found.path == path) offered.push_back(Offered(services, found));
  }
  return offered;
}

std::vector<Unfinished> UnfinishedClasses(const Services& services) {
  std::vector<Unfinished> offered;
  for (const Found& found : FindClasses(services, FoldersToLookIn(services))) {
    offered.push_back(Offered(services, found));
  }
  return offered;
}

}  // namespace orvex
