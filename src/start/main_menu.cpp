#include "start/main_menu.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "desk/data_folder.h"
#include "desk/prompter.h"
#include "desk/recent_places.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "model/clock.h"
#include "model/program.h"
#include "model/texts.h"
#include "model/version.h"
#include "start/field_notes_file.h"
#include "store/file_error.h"
#include "store/options_file.h"
#include "store/text_encoding.h"
#include "survey/load_survey.h"

namespace orvex {

MainMenu::MainMenu(const Services& services)
    : services_(services),
      dateText_(services.clock.ShortDateText()),
      timeText_(services.clock.TimeText()) {
  services_.program.StartTimeText = timeText_;
}

std::string MainMenu::ProductName() const {
  return Say(Text::productName, {VersionText()});
}

void MainMenu::Tick() {
  timeText_ = services_.clock.TimeText();
}

std::string MainMenu::DataFolder() const {
  return DataFolderText(services_);
}

void MainMenu::NewObservation() {
  if (!SettleDataFolder(services_, true)) return;
  services_.screens.Show(Screen::setUp);
  services_.screens.Close(Screen::mainMenu);
}

void MainMenu::EditSurvey() {
  EditChosenSurvey(services_);
}

/// True when `folder` exists. If it does not, asks the user whether to create it or use it anyway;
/// false when neither is wanted, or creating it fails.
bool MainMenu::IsWanted(const std::string& folder) {
  std::error_code unreadable;
  if (std::filesystem::is_directory(folder, unreadable)) return true;
  const Answer answer =
      services_.prompter.Ask({.text = Say(Text::askMakeFolder, {folder}),
                              .buttons = Buttons::yesNoCancel,
                              .defaultAnswer = Answer::yes,
                              .captions = {{Answer::yes, Say(Text::makeFolder)},
                                           {Answer::no, Say(Text::useFolderAnyway)}}});
  if (answer != Answer::yes) return answer == Answer::no;
  try {
    EnsureFolders(services_.storage, folder);
    return true;
  } catch (const FileError& error) {
    services_.prompter.Tell(Say(Text::folderNotMade), error.what());
    return false;
  }
}

void MainMenu::ChangeDataPath() {
  TextPrompt prompt = {
      .text = Say(Text::askDataPath),
      .title = Say(Text::dataPathTitle),
      .defaultText =
          StoredDataPath(services_.programFolder).value_or(services_.program.DataPath.string()),
      .isFolder = true};
  std::string& folder = prompt.defaultText;
  do {
    const std::optional<std::string> answer = services_.prompter.AskText(prompt);
    if (!answer || answer->empty()) return;
    folder = OneLine(*answer);
  } while (!IsWanted(folder));
  services_.program.DataPath = folder;
  SaveFile(services_.prompter,
           {.failure = Say(Text::dataPathNotStored), .path = OptionsPath(services_.programFolder)},
           [&](const std::filesystem::path&) {
             WriteOptionsFile(services_.storage, services_.programFolder, folder);
           });
}

void MainMenu::EditFieldNotes() {
  EditChosenNotes(services_);
}

std::vector<RecentPlace> MainMenu::Recent() const {
  return RecentPlaces(services_.programFolder);
}

void MainMenu::OpenRecent(const RecentPlace& place) {
  Screens& screens = services_.screens;
  const bool isFolder = place.kind == RecentKind::folder;
  services_.program.DataPath = isFolder ? place.path : place.path.parent_path();
  switch (place.kind) {
    case RecentKind::folder:
      return OpenStudy();
    case RecentKind::fieldNotes:
      return screens.ShowFieldNotes(place.path, Kept::areOffered);
    case RecentKind::survey:
      if (!screens.ShowSurveyFile(place.path, Kept::areOffered)) return;
      break;
    case RecentKind::episodes:
      if (!screens.ShowEpisodeEditor(place.path, Kept::areOffered)) return;
      break;
  }
  screens.Close(Screen::mainMenu);
}

Preferences MainMenu::Chosen() const {
  return ReadPreferences(services_.programFolder);
}

void MainMenu::Choose(const Preferences& preferences) {
  RememberPreferences(services_.storage, services_.programFolder, preferences);
}

void MainMenu::OpenStudy() {
  RememberRecent(services_, {RecentKind::folder, services_.program.DataPath});
  services_.screens.Show(Screen::study);
  services_.screens.Close(Screen::mainMenu);
}

void MainMenu::OpenManual() {
  services_.screens.ShowManual();
}

void MainMenu::ShowAbout() {
  services_.screens.ShowAbout();
}

void MainMenu::EndProgram() {
  services_.screens.EndProgram();
}

}  // namespace orvex
