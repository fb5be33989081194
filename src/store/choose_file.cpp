#include "store/choose_file.h"

#include "model/program.h"
#include "model/prompter.h"

namespace orvex {

std::filesystem::path ChooseFile(const Services& services, const std::string& filter) {
  const ChosenFile chosen =
      services.prompter.AskFile({.folder = services.program.DataPath, .filter = filter});
  if (!chosen.folder.empty()) services.program.DataPath = chosen.folder;
  return chosen.path;
}

}  // namespace orvex
