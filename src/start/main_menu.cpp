#include "start/main_menu.h"

#include <optional>
#include <utility>

#include "model/clock.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "model/version.h"
#include "start/start_up.h"
#include "store/file_error.h"
#include "store/options_file.h"
#include "store/text_encoding.h"

namespace orvex {

MainMenu::MainMenu(Program& program, Storage& storage, const Clock& clock, Prompter& prompter,
                   Screens& screens, std::filesystem::path programFolder)
    : program_(program),
      storage_(storage),
      clock_(clock),
      prompter_(prompter),
      screens_(screens),
      programFolder_(std::move(programFolder)),
      dateText_(clock.ShortDateText()),
      timeText_(clock.TimeText()) {
  program_.StartTimeText = timeText_;
}

std::string MainMenu::ProductName() const {
  return "Orvex " + VersionText();
}

void MainMenu::Tick() {
  timeText_ = clock_.TimeText();
}

void MainMenu::NewObservation() {
  screens_.Show(Screen::setUp);
  screens_.Close(Screen::mainMenu);
}

void MainMenu::ChangeDataPath() {
  const std::optional<std::string> answer = prompter_.AskText(
      {.text = "Enter a new path",
       .title = "Default path",
       .defaultText = StoredDataPath(programFolder_).value_or(program_.DataPath.string())});
  if (!answer || answer->empty()) return;
  const std::string folder = OneLine(*answer);
  program_.DataPath = folder;
  try {
    WriteOptionsFile(storage_, programFolder_, folder);
  } catch (const FileError& error) {
    prompter_.Tell("The data folder could not be stored.", error.what());
  }
}

void MainMenu::Cancel() {
  screens_.EndProgram();
}

}  // namespace orvex
