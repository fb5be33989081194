#include "survey/open_survey.h"

#include <string>
#include <system_error>

#include "desk/choose_file.h"
#include "desk/prompter.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "store/durable_file.h"
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
  if (services.screens.ShowSurveyFile(path, Unsaved::isOffered))
    services.screens.Close(Screen::mainMenu);
  return true;
}

namespace {

OpenedSurvey Read(const Services& services, const std::filesystem::path& path,
                  const std::optional<UnsavedChanges>& changes) {
  std::string bytes;
  std::error_code unknown;
  if (!changes || std::filesystem::exists(path, unknown)) bytes = ReadFile(path);
  OpenedSurvey opened = ParseSur(changes ? *changes->bytes : bytes);
  if (!bytes.empty()) TellProtection(services.prompter, path);
  opened.keeper = std::make_unique<FileKeeper>(services, path, bytes, changes);
  opened.isTakenUp = changes.has_value();
  return opened;
}

}  // namespace

std::optional<OpenedSurvey> LoadSurvey(const Services& services, const std::filesystem::path& path,
                                       Unsaved unsaved) {
  const Resumption resumed = Resume(services, path, unsaved);
  if (!resumed.isOpened) return std::nullopt;
  try {
    return Read(services, path, resumed.changes);
  } catch (const FormatError& error) {
    TellUnreadable(services, Shown(path.native()) + ", " + error.what());
  } catch (const FileError& error) {
    TellUnreadable(services, error.what());
  }
  return std::nullopt;
}

}  // namespace orvex
