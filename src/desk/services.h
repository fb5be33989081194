#pragma once

#include <filesystem>

namespace orvex {

class Clock;
class Prompter;
class RecoveryFile;
class Screens;
class SessionLog;
class Storage;
struct Program;

/// What every activity works with. All of it outlives the activities.
struct Services {
  Program& program;
  SessionLog& log;
  RecoveryFile& recovery;
  Storage& storage;
  const Clock& clock;
  Prompter& prompter;
  Screens& screens;
  /// Where the options file lies, and what else the program itself remembers.
  const std::filesystem::path& programFolder;

  /// The same with the observation, and the data folder, of another program state.
  Services With(Program& other) const {
    return {other, log, recovery, storage, clock, prompter, screens, programFolder};
  }
};

}  // namespace orvex
