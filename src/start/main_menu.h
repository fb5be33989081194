#pragma once

#include <string>
#include <vector>

#include "desk/recent_places.h"
#include "desk/services.h"
#include "model/texts.h"
#include "store/preferences.h"

namespace orvex {

/// The hub between the activities, and the first form shown.
class MainMenu {
 public:
  /// Records the time from which the class counts as started.
  explicit MainMenu(const Services& services);

  /// "Orvex 4.10".
  std::string ProductName() const;
  std::string CompanyProduct() const { return Say(Text::companyProduct); }
  std::string Copyright() const { return Say(Text::copyright); }
  const std::string& DateText() const { return dateText_; }
  const std::string& TimeText() const { return timeText_; }
  /// Says which folder the next class goes into.
  std::string DataFolder() const;

  /// To be called once a second.
  void Tick();

  /// Shows the set-up form, once it is settled which folder the class goes into.
  void NewObservation();
  /// Lets the user choose a survey file and edit it.
  void EditSurvey();
  /// Asks for another data folder and remembers it for the next start. If there is no such folder,
  /// the user is told and can have it created.
  void ChangeDataPath();
  /// Lets the user choose a field-notes file and edit it.
  void EditFieldNotes();
  /// Shows the study of the data folder.
  void OpenStudy();
  /// The files and the studies that were opened last.
  std::vector<RecentPlace> Recent() const;
  /// Opens a file in its form, or the study of a folder; either becomes the data folder, as when it
  /// is chosen in a dialog.
  void OpenRecent(const RecentPlace& place);
  /// How the program behaves on this machine.
  Preferences Chosen() const;
  void Choose(const Preferences& preferences);
  /// Shows the manual, or says which program this is.
  void OpenManual();
  void ShowAbout();
  void EndProgram();

 private:
  bool IsWanted(const std::string& folder);

  Services services_;
  std::string dateText_;
  std::string timeText_;
};

}  // namespace orvex
