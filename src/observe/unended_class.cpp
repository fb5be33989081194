#include "observe/unended_class.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "model/clock.h"
#include "model/counted.h"
#include "model/program.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "observe/close_kept_class.h"
#include "observe/kept_class.h"
#include "store/claim.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/kept_content.h"
#include "store/paths.h"
#include "store/recovery_file.h"
#include "store/session_log.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Nothing, when the user has been told that the class cannot be read.
std::optional<KeptClass> Read(const Services& services, const fs::path& path) {
  std::string cause;
  try {
    return ReadKeptClass(path);
  } catch (const FileError& error) {
    cause = error.what();
  } catch (const FormatError& error) {
    cause = path.string() + ": " + error.what();
  }
  services.prompter.Tell("A class that was not ended cannot be read. Its file is left as it is.",
                         cause);
  return std::nullopt;
}

std::string Description(const KeptClass& kept) {
  const KeptMoment& moment = kept.moment;
  std::string text = "Class " + kept.program.identity.ClassId() + " of " + moment.dateText +
                     (kept.program.QuitRequested ? " is stored, but its survey is not.\n\n"
                                                 : " was not ended.\n\n");
  text += "It was observed from " + kept.program.StartTimeText + " to " + moment.timeText + ": " +
          Counted(kept.program.Episodes.size(), "episode") + ", " +
          Counted(kept.Questions(), "question") + ".";
  return text;
}

/// How long ago the class was kept last, in seconds. A clock that has been set back counts as none.
std::int64_t Gap(const Services& services, const KeptClass& kept) {
  return std::max<std::int64_t>(0, services.clock.UnixSeconds() - kept.moment.unixSeconds);
}

Answer Ask(const Services& services, const KeptClass& kept) {
  const bool stored = kept.program.QuitRequested;
  constexpr std::int64_t kStillThatLesson = 2 * 60 * 60;
  return services.prompter.Ask(
      {.text = Description(kept),
       .buttons = Buttons::yesNoCancel,
       .defaultAnswer = Gap(services, kept) < kStillThatLesson ? Answer::yes : Answer::cancel,
       .captions = {{Answer::yes, stored ? "&Fill in the survey" : "&Go on observing"},
                    {Answer::no, stored ? "&Close it without" : "&Close it as it stands"},
                    {Answer::cancel, "&Leave it for later"}}});
}

/// True when the log has the numbers of the header already and the recovery file has not.
bool WasJustRenamed(const Services& services, const KeptClass& kept, const fs::path& path) {
  std::error_code unknown;
  return !fs::exists(fs::path(path).replace_extension(".bak"), unknown) &&
         fs::exists(BakPath(services.program.DataPath, kept.program.identity), unknown);
}

/// Opens what a running class needs. Throws FileError; the class is then kept as it was.
void ReopenFiles(const Services& services, const KeptClass& kept, const fs::path& path) {
  services.recovery.GoOn(path, kept.number);
  if (kept.program.QuitRequested) return;  // its log is complete
  try {
    fs::path place = path;
    if (WasJustRenamed(services, kept, path)) {
      place = RecoveryPath(services.program.DataPath, kept.program.identity);
    }
    services.recovery.MoveTo(place);
    services.log.File().GoOn(place.replace_extension(".bak"));
  } catch (const FileError&) {
    services.recovery.Leave();
    throw;
  }
  services.log.LogTakenUp();
}

bool TakeUp(const Services& services, KeptClass kept, const fs::path& path) {
  try {
    ReopenFiles(services, kept, path);
  } catch (const FileError& error) {
    services.prompter.Tell("The class could not be taken up again.", error.what());
    return false;
  }
  // The time since then counts: the segment has gone on all the while.
  kept.running.ShiftTimes(services.clock.SecondsSinceMidnight() - kept.moment.secondsSinceMidnight -
                          static_cast<float>(Gap(services, kept)));
  kept.program.DataPath = std::move(services.program.DataPath);
  services.program = std::move(kept.program);
  services.screens.ShowTakenUpClass(kept.running);
  services.screens.Close(Screen::mainMenu);
  return true;
}

}  // namespace

OfferResult OfferUnendedClass(const Services& services, const fs::path& path) {
  std::optional<KeptClass> kept = Read(services, path);
  if (!kept) return OfferResult::later;
  switch (Ask(services, *kept)) {
    case Answer::yes:
      return TakeUp(services, *std::move(kept), path) ? OfferResult::takenUp : OfferResult::later;
    case Answer::no:
      return CloseKeptClass(services, *std::move(kept), path) ? OfferResult::closed
                                                              : OfferResult::later;
    default:
      return OfferResult::later;
  }
}

void OfferUnendedClasses(const Services& services) {
  for (const fs::path& path : KeptPaths(BakFolder(services.program.DataPath))) {
    if (IsClaimed(path)) continue;
    if (OfferUnendedClass(services, path) == OfferResult::takenUp) return;
  }
}

}  // namespace orvex
