#pragma once

namespace orvex {

class Clock;
class Prompter;
class Screens;
class SessionLog;
class Storage;
struct Program;

/// What every activity works with. All of it outlives the activities.
struct Services {
  Program& program;
  SessionLog& log;
  Storage& storage;
  const Clock& clock;
  Prompter& prompter;
  Screens& screens;
};

}  // namespace orvex
