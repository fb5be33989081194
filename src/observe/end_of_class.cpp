#include "observe/end_of_class.h"

#include "desk/save_file.h"
#include "desk/screens.h"
#include "model/clock.h"
#include "model/program.h"
#include "model/texts.h"
#include "recovery/kept_class.h"
#include "running/store_class.h"
#include "store/session_log.h"

namespace orvex {

bool StoreEpisodes(const Services& services, RunningClass& running) {
  Program& program = services.program;
  EpsHeader header = {.identity = program.identity,
                      .ObservDate = services.clock.DateText(),
                      .StartTime = program.StartTimeText,
                      .ActivityOfftask = program.AverageOfftask()};
  const bool stored =
      StoreClass(services, Say(Text::dataStillInMemory), header, program.Episodes, running);
  program.identity = header.identity;
  return stored;
}

void CompleteLog(const Services& services) {
  AppendLog& log = services.log.File();
  services.log.LogBlankLine();
  services.log.LogOff();
  SaveFile(services.prompter, {.failure = Say(Text::logNotCompleted), .path = log.Path()},
           [&log](const std::filesystem::path&) { log.Close(); });
}

void LeaveWithSurvey(const Services& services, RunningClass& running) {
  running.awaitsSurvey = !StoreSurvey(services, services.program.identity, running);
  if (running.awaitsSurvey) return;
  ForgetKept(services);
  services.screens.Close(Screen::survey);
  services.screens.EndProgram();
}

bool LeaveWithNotes(const Services& services, RunningClass& running) {
  if (!running.fieldNotes.empty() && !StoreNotes(services, running)) return false;
  ForgetKept(services);
  return true;
}

}  // namespace orvex
