#pragma once

#include <filesystem>
#include <string>

#include "model/program.h"

namespace orvex {

class Clock;
class Prompter;
class Screens;
class Storage;

/// The hub between the activities, and the first thing that is shown.
class MainMenu {
 public:
  /// Takes the time from which the class counts as started.
  MainMenu(Program& program, Storage& storage, const Clock& clock, Prompter& prompter,
           Screens& screens, std::filesystem::path programFolder);

  /// "Orvex 4.10".
  std::string ProductName() const;
  std::string CompanyProduct() const { return "In-class analysis of classroom discourse"; }
  std::string Copyright() const { return "Copyright \u00A9 2026 The Orvex developers"; }
  const std::string& DateText() const { return dateText_; }
  const std::string& TimeText() const { return timeText_; }

  /// Once a second.
  void Tick();

  void NewObservation();
  /// Asks for another data folder and remembers it for the next start.
  void ChangeDataPath();
  void Cancel();

 private:
  Program& program_;
  Storage& storage_;
  const Clock& clock_;
  Prompter& prompter_;
  Screens& screens_;
  std::filesystem::path programFolder_;
  std::string dateText_;
  std::string timeText_;
};

}  // namespace orvex
