#include "start/start_up.h"

#include <optional>
#include <string>

#include "desk/data_folder.h"
#include "store/file_error.h"

namespace orvex {

namespace fs = std::filesystem;

fs::path ProgramFolder(Storage& storage, const Installation& installation) {
  if (installation.executableFolderWritable) return installation.executableFolder;
  try {
    EnsureFolders(storage, installation.userFolder);
  } catch (const FileError&) {
    // Nothing is lost yet. Whoever wants to store something there will be told.
  }
  return installation.userFolder;
}

void SettleDataPath(Program& program, const fs::path& programFolder) {
  program.QuitRequested = false;
  const std::optional<std::string> stored = StoredDataPath(programFolder);
  program.DataPath = stored ? fs::path(*stored) : programFolder;
}

}  // namespace orvex
