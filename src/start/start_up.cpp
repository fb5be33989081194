#include "start/start_up.h"

#include <system_error>

#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/options_file.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

void EnsureFolders(Storage& storage, const fs::path& folder) {
  std::error_code unreadable;
  if (folder.empty() || fs::is_directory(folder, unreadable)) return;
  EnsureFolders(storage, folder.parent_path());
  EnsureFolder(storage, folder);
}

}  // namespace

fs::path ProgramFolder(Storage& storage, const Installation& installation) {
  if (installation.executableFolderWritable) return installation.executableFolder;
  try {
    EnsureFolders(storage, installation.userFolder);
  } catch (const FileError&) {
    // Nothing is lost yet. Whoever wants to store something there will be told.
  }
  return installation.userFolder;
}

std::optional<std::string> StoredDataPath(const fs::path& programFolder) {
  std::optional<std::string> stored = ReadOptionsFile(programFolder);
  std::error_code unreadable;
  if (stored && !fs::is_directory(*stored, unreadable)) stored.reset();
  return stored;
}

void SettleDataPath(Program& program, const fs::path& programFolder) {
  program.QuitRequested = false;
  const std::optional<std::string> stored = StoredDataPath(programFolder);
  program.DataPath = stored ? fs::path(*stored) : programFolder;
}

}  // namespace orvex
