#include "survey/open_survey.h"

#include "model/prompter.h"
#include "model/screens.h"
#include "store/choose_file.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/shown_text.h"

namespace orvex {
namespace {

void TellUnreadable(const Services& services, const std::string& why) {
  services.prompter.Tell("Invalid file format", why);
}

}  // namespace

bool ChooseSurveyFile(const Services& services) {
  const std::filesystem::path path = ChooseFile(services, kSurFilter);
  if (path.empty()) return false;
  if (services.screens.ShowSurveyFile(path)) services.screens.Close(Screen::mainMenu);
  return true;
}

std::optional<SurFile> LoadSurvey(const Services& services, const std::filesystem::path& path) {
  try {
    return ReadSurFile(path);
  } catch (const FormatError& error) {
    TellUnreadable(services, Shown(path.native()) + ", " + error.what());
  } catch (const FileError& error) {
    TellUnreadable(services, error.what());
  }
  return std::nullopt;
}

}  // namespace orvex
