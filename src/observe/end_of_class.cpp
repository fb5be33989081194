#include <string>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "model/clock.h"
#include "observe/live_observation.h"
#include "running/store_class.h"
#include "store/numbers.h"
#include "store/session_log.h"

namespace orvex {
void LiveObservation::cmdQuit_Click() {
  if (run_.nothingEntered) {
    if (LeaveWithNotes()) services_.screens.EndProgram();
    return;
  }
  if (!run_.awaitsSurvey) {
    if (!EndClass()) return;
    // An Enter too many must not close the class without its survey.
    run_.awaitsSurvey = services_.prompter.Ask({.text = "Have you finished Matrices?",
                                                .buttons = Buttons::yesNo,
                                                .defaultAnswer = Answer::no}) != Answer::yes;
    if (run_.awaitsSurvey) return focus_.Set({.kind = Control::Kind::survey}, Caret::stay);
  }
  LeaveWithSurvey();
}

/// Ends the last episode and stores the class. False when the class goes on.
bool LiveObservation::EndClass() {
  if (run_.curActivity == kNoActivity || !HeaderNamesFiles()) return false;
  if (services_.prompter.Ask({.text = "Verify END OF CLASS",
                              .buttons = Buttons::yesNo,
                              .defaultAnswer = Answer::no}) != Answer::yes) {
    return false;
  }
  const int episodeActivity = run_.episodeActivity;
  const float offtask = CurrentEpisode().offtask;
  const OfftaskSchedule schedule = run_.schedule;
  EndEpisode();
  if (!SaveClass()) {
    // The segment runs on as if the end had not been asked for.
    CurrentEpisode().segments.pop_back();
    CurrentEpisode().offtask = offtask;
    run_.episodeActivity = episodeActivity;
    run_.schedule = schedule;
    services_.log.LogClassGoesOn();
    return false;
  }
  EndWithLog();
  services_.program.QuitRequested = true;
  services_.screens.Close(Screen::aboutText);
  return true;
}

/// Writes the survey and ends the program. What cannot be written waits for another "E&xit".
void LiveObservation::LeaveWithSurvey() {
  run_.awaitsSurvey = !StoreSurvey(services_, services_.program.identity, run_);
  if (run_.awaitsSurvey) return;
  ForgetKept(services_);
  services_.screens.Close(Screen::survey);
  services_.screens.EndProgram();
}

/// False, with the focus on the box, while one of the numbers that name the files is no number, or
/// not the one that the log has.
bool LiveObservation::HeaderNamesFiles() {
  for (const HeaderBox box : kNumberBoxes) {
    if (IdentityNumber(header_.Text(box))) continue;
    services_.prompter.Tell("School, class and observation must be numbers from 0 to 32767.");
    focus_.Set({.kind = Control::Kind::header, .box = box}, Caret::selectAll);
    return false;
  }
  const auto box = header_.Disagreeing();
  return !box || LeaveHeader(*box);
}

bool LiveObservation::SaveClass() {
  Program& program = services_.program;
  EpsHeader header = {.identity = program.identity,
                      .ObservDate = services_.clock.DateText(),
                      .StartTime = program.StartTimeText,
                      .ActivityOfftask = program.AverageOfftask()};
  const bool stored =
      StoreClass(services_, "The data files could not be written. The class is still in memory.",
                 header, program.Episodes, run_);
  program.identity = header.identity;
  return stored;
}

/// The class is stored by now. A log that cannot be completed must not keep the observer in it.
void LiveObservation::EndWithLog() {
  services_.log.LogBlankLine();
  services_.log.LogOff();
  SaveFile(services_.prompter,
           {.failure = "The class is stored, but the session log could not be completed.",
            .path = services_.log.File().Path()},
           [this](const std::filesystem::path&) { services_.log.File().Close(); });
}

/// Nothing of the class is to be stored but the notes, if there are any. False when the user gave
/// up.
bool LiveObservation::LeaveWithNotes() {
  if (!FieldNotes().empty() && !StoreNotes(services_, run_)) return false;
  ForgetKept(services_);
  return true;
}

bool LiveObservation::RequestClose() {
  if (run_.nothingEntered) return LeaveWithNotes();
  // Once the class is stored the window may go, but the survey goes to its file first.
  if (CanEndClass()) cmdQuit_Click();
  return false;
}

}  // namespace orvex
