#pragma once

#include <filesystem>
#include <string>

#include "desk/services.h"
#include "model/program.h"
#include "recovery/recovery_file.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "support/fake_clock.h"
#include "support/recording_screens.h"
#include "support/scripted_prompter.h"
#include "support/test_folder.h"

namespace orvex::test {

/// Everything an activity works with: a folder of its own, and doubles that follow the test's
/// script.
struct Desk {
  Desk() { program.DataPath = folder.Path(); }

  /// Opens the log of class 7-12-3 with 25 students, as the set-up form does.
  void OpenLog() {
    program.identity = {.Initials = "AB",
                        .SchoolNum = "7",
                        .ClassNum = "12",
                        .ObservNum = "3",
                        .NumStudents = "25"};
    std::filesystem::create_directories(folder / "BAK/7/12");
    log.File().Open(folder / "BAK/7/12/7-12-3.bak");
  }

  /// What was logged since the last call, with LF line ends for easy reading.
  std::string NewLogText() {
    const std::string all = FileBytes(log.File().Path());
    std::string text = all.substr(logRead);
    logRead = all.size();
    for (auto at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at)) {
      text.erase(at, 1);
    }
    return text;
  }

  TestFolder folder;
  TestFolder ownFolder;  ///< the program's folder
  Program program;
  Storage storage;
  FakeClock clock;
  ScriptedPrompter prompter;
  RecordingScreens screens;
  SessionLog log{storage, clock};
  RecoveryFile recovery{storage};
  std::filesystem::path programFolder = ownFolder.Path();
  Services services{program, log, recovery, storage, clock, prompter, screens, programFolder};
  std::size_t logRead = 0;
};

}  // namespace orvex::test
