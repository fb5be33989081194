#include <exception>
#include <functional>
#include <string>

#include "model/clock.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "observe/live_observation.h"
#include "store/eps_file.h"
#include "store/field_notes.h"
#include "store/paths.h"
#include "store/session_log.h"

namespace orvex {
namespace {

/// The live observation's end-of-class save. Throws FileError, and std::invalid_argument for a
/// header number that names no file.
void SaveObservation(const Services& services) {
  Program& program = services.program;
  const auto path = EpsPath(services.storage, program.DataPath, program.identity);
  const EpsHeader header = {.identity = program.identity,
                            .ObservDate = services.clock.DateText(),
                            .StartTime = program.StartTimeText,
                            .ActivityOfftask = program.AverageOfftask()};
  WriteEpsFile(services.storage, path, header, program.Episodes);
}

}  // namespace

void LiveObservation::cmdQuit_Click() {
  if (nothingEntered_) {
    services_.screens.EndProgram();
    return;
  }
  if (services_.prompter.Ask({.text = "Verify END OF CLASS",
                              .buttons = Buttons::yesNo,
                              .defaultAnswer = Answer::no}) != Answer::yes) {
    return;
  }
  const std::string episodeActivity = episodeActivity_;
  EndEpisode();
  if (!SaveClass()) {
    ReopenEpisode(episodeActivity);
    return;
  }
  services_.program.QuitRequested = true;
  services_.screens.Close(Screen::aboutText);
  services_.screens.EndProgram();
}

bool LiveObservation::SaveClass() {
  const Program& program = services_.program;
  const bool stored = Persist("The data files could not be written.", [&] {
    SaveObservation(services_);
    WriteFieldNotes(services_.storage,
                    NtePath(services_.storage, program.DataPath, services_.program.identity),
                    fieldNotes_);
  });
  if (!stored) return false;
  services_.log.LogBlankLine();
  services_.log.LogOff();
  return Persist("The session log could not be completed.",
                 [this] { services_.log.File().Close(); });
}

/// Runs `save` until it succeeds, or until the observer no longer wants to try.
bool LiveObservation::Persist(const std::string& trouble, const std::function<void()>& save) {
  for (;;) {
    try {
      save();
      return true;
    } catch (const std::exception& error) {
      if (services_.prompter.Ask({.text = trouble + " The class is still in memory. Try again?",
                                  .buttons = Buttons::yesNo,
                                  .defaultAnswer = Answer::yes,
                                  .details = error.what()}) != Answer::yes) {
        return false;
      }
    }
  }
}

/// Takes back what EndEpisode has done to the record: the segment runs on as if the end had not
/// been asked for.
void LiveObservation::ReopenEpisode(const std::string& episodeActivity) {
  CurrentEpisode().segments.pop_back();
  episodeActivity_ = episodeActivity;
}

bool LiveObservation::RequestClose() {
  if (nothingEntered_ || services_.program.QuitRequested) return true;
  if (CanEndClass()) cmdQuit_Click();
  return false;
}

}  // namespace orvex
