#include "desk/data_folder.h"

#include <system_error>

#include "desk/prompter.h"
#include "model/program.h"
#include "model/texts.h"
#include "store/durable_file.h"
#include "store/options_file.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

bool IsFolder(const fs::path& path) {
  std::error_code unreadable;
  return fs::is_directory(path, unreadable);
}

Answer AskAboutMissing(Prompter& prompter, const fs::path& missing) {
  return prompter.Ask({.text = Say(Text::dataFolderMissing, {missing.string()}),
                       .buttons = Buttons::okYesNoCancel,
                       .captions = {{Answer::ok, Say(Text::tryAgain)},
                                    {Answer::yes, Say(Text::chooseFolder)},
                                    {Answer::no, Say(Text::useProgramFolder)}}});
}

/// The folder that the user wants instead of `missing`; empty when the user must be asked again.
fs::path FolderFor(const Services& services, Answer answer, const fs::path& missing) {
  if (answer == Answer::no) return services.programFolder;
  if (answer == Answer::yes) return services.prompter.AskFolder(missing.parent_path());
  return IsFolder(missing) ? missing : fs::path();
}

}  // namespace

std::optional<std::string> StoredDataPath(const fs::path& programFolder) {
  std::optional<std::string> stored = ReadOptionsFile(programFolder);
  if (stored && !IsFolder(*stored)) stored.reset();
  return stored;
}

std::string DataFolderText(const Services& services) {
  const fs::path& folder = services.program.DataPath;
  const std::string stored = ReadOptionsFile(services.programFolder).value_or("");
  const fs::path usual = stored.empty() ? services.programFolder : fs::path(stored);
  std::error_code unknown;
  const bool isUsual = folder == usual || fs::equivalent(folder, usual, unknown);
  return isUsual ? Say(Text::dataFolder, {folder.string()})
                 : Say(Text::unusualDataFolder, {folder.string(), usual.string()});
}

std::optional<fs::path> MissingDataFolder(const Services& services, bool atStartUp) {
  const fs::path& folder = services.program.DataPath;
  const auto stored = ReadOptionsFile(services.programFolder);
  if (atStartUp && stored && !stored->empty() && folder == services.programFolder &&
      !IsFolder(*stored)) {
    return *stored;
  }
  return IsFolder(folder) ? std::nullopt : std::optional(folder);
}

bool SettleDataFolder(const Services& services, bool atStartUp) {
  const auto missing = MissingDataFolder(services, atStartUp);
  if (!missing) return true;
  fs::path folder;
  while (folder.empty()) {
    const Answer answer = AskAboutMissing(services.prompter, *missing);
    if (answer == Answer::cancel) return false;
    folder = FolderFor(services, answer, *missing);
  }
  services.program.DataPath = folder;
  return true;
}

void EnsureFolders(Storage& storage, const fs::path& folder) {
  if (folder.empty() || IsFolder(folder)) return;
  EnsureFolders(storage, folder.parent_path());
  EnsureFolder(storage, folder);
}

}  // namespace orvex
