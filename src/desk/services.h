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
  /// Holds the options file, and whatever else the program itself remembers.
  const std::filesystem::path& programFolder;

  /// The same services for another program state, with its own observation and data folder.
  Services With(Program& other) const {
    return {other, log, recovery, storage, clock, prompter, screens, programFolder};
  }
};

}  // namespace orvex
