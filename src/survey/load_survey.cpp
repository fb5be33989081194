#include "survey/load_survey.h"

#include <string>

#include "desk/choose_file.h"
#include "desk/prompter.h"
#include "desk/recent_places.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "model/texts.h"
#include "recovery/unfinished_file.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/printable_text.h"

namespace orvex {
namespace {

void TellUnreadable(const Services& services, const std::string& why) {
  services.prompter.Tell(Say(Text::invalidFormat), why);
}

}  // namespace

bool EditChosenSurvey(const Services& services) {
  const std::filesystem::path path = ChooseFile(services, kSurFilter);
  if (path.empty()) return false;
  if (services.screens.ShowSurveyFile(path, Kept::areOffered))
    services.screens.Close(Screen::mainMenu);
  return true;
}

namespace {

LoadedSurvey Read(const Services& services, const std::filesystem::path& path,
                  const TakenUp& takenUp) {
  const auto& changes = takenUp.changes;
  const std::string bytes = takenUp.FileBytes(path);
  LoadedSurvey loaded = ParseSur(changes ? *changes->bytes : bytes);
  TellProtection(services.prompter, path);
  loaded.keeper = std::make_unique<FileKeeper>(services, path, bytes, changes);
  loaded.isTakenUp = changes.has_value();
  loaded.opened = takenUp.Opened(bytes);
  return loaded;
}

}  // namespace

std::optional<LoadedSurvey> LoadSurvey(const Services& services, const std::filesystem::path& path,
                                       Kept kept) {
  const TakenUp takenUp = TakeUpChanges(services, path, kept);
  if (takenUp.isLeft) return std::nullopt;
  try {
    LoadedSurvey loaded = Read(services, path, takenUp);
    RememberRecent(services, {RecentKind::survey, path});
    return loaded;
  } catch (const FormatError& error) {
    TellUnreadable(services, Printable(path.native()) + ", " + error.what());
  } catch (const FileError& error) {
    TellUnreadable(services, error.what());
  }
  return std::nullopt;
}

}  // namespace orvex
