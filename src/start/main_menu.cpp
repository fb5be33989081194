#include "start/main_menu.h"

#include <optional>

#include "model/clock.h"
#include "model/program.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "model/version.h"
#include "start/field_notes_file.h"
#include "start/start_up.h"
#include "store/options_file.h"
#include "store/save_file.h"
#include "store/text_encoding.h"
#include "survey/open_survey.h"

namespace orvex {

MainMenu::MainMenu(const Services& services)
    : services_(services),
      dateText_(services.clock.ShortDateText()),
      timeText_(services.clock.TimeText()) {
  services_.program.StartTimeText = timeText_;
}

std::string MainMenu::ProductName() const {
  return "Orvex " + VersionText();
}

void MainMenu::Tick() {
  timeText_ = services_.clock.TimeText();
}

void MainMenu::NewObservation() {
  services_.screens.Show(Screen::setUp);
  services_.screens.Close(Screen::mainMenu);
}

void MainMenu::Matrices() {
  ChooseSurveyFile(services_);
}

void MainMenu::ChangeDataPath() {
  const std::optional<std::string> answer = services_.prompter.AskText(
      {.text = "Enter a new path",
       .title = "Default path",
       .defaultText =
           StoredDataPath(services_.programFolder).value_or(services_.program.DataPath.string())});
  if (!answer || answer->empty()) return;
  const std::string folder = OneLine(*answer);
  services_.program.DataPath = folder;
  SaveFile(services_.prompter,
           {.failure = "The data folder could not be stored.",
            .path = OptionsPath(services_.programFolder)},
           [&](const std::filesystem::path&) {
             WriteOptionsFile(services_.storage, services_.programFolder, folder);
           });
}

void MainMenu::EditFieldNotes() {
  EditFieldNotesFile(services_);
}

void MainMenu::Cancel() {
  services_.screens.EndProgram();
}

}  // namespace orvex
