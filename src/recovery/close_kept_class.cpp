#include "recovery/close_kept_class.h"

#include <string>
#include <system_error>
#include <utility>

#include "desk/prompter.h"
#include "model/time_of_day.h"
#include "recovery/class_keeper.h"
#include "recovery/kept_class.h"
#include "recovery/recovery_file.h"
#include "running/store_class.h"
#include "store/file_error.h"
#include "store/paths.h"
#include "store/session_log.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Ends the running segment and its episode at the moment when the class was kept last. Notes that
/// were being typed are notes.
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

/// Stores the question that was being entered. Returns what to tell of it; "" when there was none.
std::string StoreDraft(KeptClass& kept) {
  std::vector<questionInfo>& questions = kept.program.Episodes.back().questions;
  constexpr std::size_t kMost = 32767;
  if (kept.running.draft.IsEmpty() || questions.size() == kMost) return "";
  questions.push_back(kept.running.DraftAsStored());
  kept.running.draft = {};
  return "The question that was being entered is stored as question " +
         std::to_string(questions.size()) + " of episode " +
         std::to_string(kept.running.curEpisode) + ", with the codes that it had.";
}

bool StoreEpisodes(const Services& services, KeptClass& kept) {
  const std::string ofDraft = StoreDraft(kept);
  EndLastEpisode(kept);
  Program& program = kept.program;
  EpsHeader header = {.identity = program.identity,
                      .ObservDate = kept.moment.dateText,
                      .StartTime = program.StartTimeText,
                      .ActivityOfftask = program.AverageOfftask()};
  const bool stored = StoreClass(services, "The data files could not be written.", header,
                                 program.Episodes, kept.running);
  program.identity = header.identity;
  if (!stored) return false;
  // From here on only the survey is missing, also when that is left for later.
  program.QuitRequested = true;
  services.recovery.Keep(FormatMoment(kept.moment) + FormatRunning(program, kept.running));
  if (!ofDraft.empty()) {
    services.prompter.Tell(ofDraft, program.Episodes.back().questions.back().question);
  }
  return true;
}

/// A survey that nobody has filled in takes no other's place.
bool StoreItsSurvey(const Services& services, KeptClass& kept) {
  Identity& identity = kept.program.identity;
  std::error_code unknown;
  if (kept.running.survey == Survey{} &&
      fs::exists(SurPathToLookFor(services.program.DataPath, identity), unknown)) {
    return true;
  }
  return StoreSurvey(services, identity, kept.running);
}

}  // namespace

bool CloseKeptClass(const Services& desk, KeptClass kept, const fs::path& path) {
  // Its files belong to the folder that it was observed in, whichever is in use now.
  kept.program.DataPath = DataFolderOf(path);
  const Services services = desk.With(kept.program);
  try {
    services.recovery.TakeUp(path, kept.number);
  } catch (const FileError& error) {
    services.prompter.Tell("The class could not be closed.", error.what());
    return false;
  }
  const bool stored = (kept.program.QuitRequested || StoreEpisodes(services, kept)) &&
                      StoreItsSurvey(services, kept);
  if (!stored) {
    services.recovery.Leave();
    return false;
  }
  ForgetKept(services);
  return true;
}

}  // namespace orvex
