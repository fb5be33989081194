#include "editor/open_editor.h"

#include <filesystem>

#include "desk/screens.h"
#include "editor/edited_file.h"

namespace orvex {

bool OpenEpisodeFile(const Services& services) {
  const std::filesystem::path path = ChooseEpisodeFile(services);
  if (path.empty() || !services.screens.ShowEpisodeEditor(path, Kept::areOffered)) return false;
  services.screens.Close(Screen::mainMenu);
  return true;
}

}  // namespace orvex
