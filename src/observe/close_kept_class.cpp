#include "observe/close_kept_class.h"

#include <string>
#include <utility>

#include "model/prompter.h"
#include "model/time_of_day.h"
#include "observe/kept_class.h"
#include "store/eps_file.h"
#include "store/field_notes.h"
#include "store/file_error.h"
#include "store/paths.h"
#include "store/recovery_file.h"
#include "store/session_log.h"
#include "store/try_again.h"
#include "survey/sur_file.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Ends the running segment and its episode at the moment when the class was kept last.
void EndLastEpisode(KeptClass& kept) {
  Episode& episode = kept.program.Episodes.back();
  const RunningClass& running = kept.running;
  if (running.estimateKind >= 1 && !kept.SegmentEnded()) {
    episode.segments.push_back(
        running.Segment(SecondsSince(running.segmentStart, kept.moment.secondsSinceMidnight)));
  }
  if (!episode.questions.empty()) episode.offtask = AverageOf(running.offtaskEstimates);
}

}  // namespace

bool CloseKeptClass(const Services& services, KeptClass kept, const fs::path& path) {
  try {
    services.recovery.GoOn(path, kept.number);
  } catch (const FileError& error) {
    services.prompter.Tell("The class could not be closed.", error.what());
    return false;
  }
  Program& program = kept.program;
  const fs::path& data = services.program.DataPath;
  const bool stored =
      TryAgainAndAgain(services.prompter, "The data files could not be written. Try again?", [&] {
        if (!program.QuitRequested) {
          EndLastEpisode(kept);
          WriteEpsFile(services.storage, EpsPath(services.storage, data, program.identity),
                       {.identity = program.identity,
                        .ObservDate = kept.moment.dateText,
                        .StartTime = program.StartTimeText,
                        .ActivityOfftask = program.AverageOfftask()},
                       program.Episodes);
          WriteFieldNotes(services.storage, NtePath(services.storage, data, program.identity),
                          {.text = kept.running.fieldNotes});
        }
        WriteSurFile(services.storage, SurPath(services.storage, data, program.identity),
                     {.identity = program.identity, .answers = kept.running.survey});
      });
  if (!stored) {
    services.recovery.Leave();
    return false;
  }
  services.recovery.Remove();
  return true;
}

}  // namespace orvex
