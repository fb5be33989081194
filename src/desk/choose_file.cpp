#include "desk/choose_file.h"

#include "desk/prompter.h"
#include "model/program.h"

namespace orvex {

std::filesystem::path ChooseFile(const Services& services, const std::string& filter) {
  return ChooseFile(services, filter, services.program.DataPath);
}

std::filesystem::path ChooseFile(const Services& services, const std::string& filter,
                                 const std::filesystem::path& folder) {
  const ChosenFile chosen = services.prompter.AskFile({.folder = folder, .filter = filter});
  if (!chosen.path.empty()) services.program.DataPath = chosen.folder;
  return chosen.path;
}

}  // namespace orvex
