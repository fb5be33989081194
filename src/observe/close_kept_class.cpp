#include "observe/close_kept_class.h"

#include <string>
#include <utility>

#include "model/prompter.h"
#include "model/time_of_day.h"
#include "observe/kept_class.h"
#include "observe/store_class.h"
#include "store/file_error.h"
#include "store/recovery_file.h"
#include "store/session_log.h"

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

bool StoreEpisodes(const Services& services, KeptClass& kept) {
  EndLastEpisode(kept);
  Program& program = kept.program;
  EpsHeader header = {.identity = program.identity,
                      .ObservDate = kept.moment.dateText,
                      .StartTime = program.StartTimeText,
                      .ActivityOfftask = program.AverageOfftask()};
  const bool stored =
      StoreClass(services, "The data files could not be written.", header, program.Episodes,
                 kept.running.fieldNotes, kept.running.storedElsewhere, OlderFile::isAskedAbout);
  program.identity = header.identity;
  return stored;
}

}  // namespace

bool CloseKeptClass(const Services& services, KeptClass kept, const fs::path& path) {
  try {
    services.recovery.GoOn(path, kept.number);
  } catch (const FileError& error) {
    services.prompter.Tell("The class could not be closed.", error.what());
    return false;
  }
  const bool stored = (kept.program.QuitRequested || StoreEpisodes(services, kept)) &&
                      StoreSurvey(services, kept.program.identity, kept.running.survey,
                                  kept.running.storedElsewhere);
  if (!stored) {
    services.recovery.Leave();
    return false;
  }
  ForgetKept(services);
  return true;
}

}  // namespace orvex
