#pragma once

#include <string>

#include "desk/services.h"

namespace orvex {

/// The hub between the activities, and the first thing that is shown.
class MainMenu {
 public:
  /// Takes the time from which the class counts as started.
  explicit MainMenu(const Services& services);

  /// "Orvex 4.10".
  std::string ProductName() const;
  std::string CompanyProduct() const { return "In-class analysis of classroom discourse"; }
  std::string Copyright() const { return "Copyright \u00A9 2026 The Orvex developers"; }
  const std::string& DateText() const { return dateText_; }
  const std::string& TimeText() const { return timeText_; }
  /// In which folder the next class goes.
  std::string DataFolder() const;

  /// Once a second.
  void Tick();

  /// Shows the set-up form, once it is settled in which folder the class goes.
  void NewObservation();
  /// Edits a survey file.
  void EditSurvey();
  /// Asks for another data folder and remembers it for the next start. One that is not there is
  /// told, and can be made.
  void ChangeDataPath();
  /// Lets the user choose a field-notes file and edit it.
  void EditFieldNotes();
  void EndProgram();

 private:
  bool IsWanted(const std::string& folder);

  Services services_;
  std::string dateText_;
  std::string timeText_;
};

}  // namespace orvex
