#pragma once

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
};

}  // namespace orvex
