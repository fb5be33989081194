#include "start/start_up.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/data_folder.h"
#include "recovery/unfinished.h"
#include "recovery/unfinished_class.h"
#include "recovery/unfinished_file.h"
#include "store/file_error.h"

namespace orvex {

namespace fs = std::filesystem;

fs::path ProgramFolder(Storage& storage, const Installation& installation) {
  if (installation.executableFolderWritable) return installation.executableFolder;
  try {
    EnsureFolders(storage, installation.userFolder);
  } catch (const FileError&) {
    // Nothing is lost yet. The user is told once something is to be stored there.
  }
  return installation.userFolder;
}

void SettleDataPath(Program& program, const fs::path& programFolder) {
  program.ClassStored = false;
  const std::optional<std::string> stored = StoredDataPath(programFolder);
  program.DataPath = stored ? fs::path(*stored) : programFolder;
}

void OfferAllUnfinished(const Services& services) {
  std::vector<Unfinished> all = UnfinishedClasses(services);
  std::ranges::move(UnfinishedFiles(services), std::back_inserter(all));
  OfferUnfinished(services.prompter, std::move(all));
}

}  // namespace orvex
