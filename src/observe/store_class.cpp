#include "observe/store_class.h"

#include "model/program.h"
#include "model/prompter.h"
#include "store/durable_file.h"
#include "store/field_notes.h"
#include "store/file_error.h"
#include "store/paths.h"
#include "store/recovery_file.h"
#include "store/save_file.h"
#include "survey/sur_file.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// True when there is a file at `path` with another content, or with one that cannot be read.
bool HoldsOther(const fs::path& path, const std::string& bytes) {
  std::error_code unknown;
  if (!fs::exists(path, unknown)) return false;
  try {
    return ReadFile(path) != bytes;
  } catch (const FileError&) {
    return true;
  }
}

/// Throws FileChanged for a file with another content that the user has not been asked about.
void AskOnce(OlderFile& older, const fs::path& path, const std::string& bytes) {
  if (older == OlderFile::isReplaced || !HoldsOther(path, bytes)) return;
  older = OlderFile::isReplaced;
  throw FileChanged(path.string());
}

}  // namespace

bool StoreClass(const Services& services, const std::string& failure, EpsHeader& header,
                const EpisodeList& episodes, const std::string& notes, fs::path& elsewhere,
                OlderFile older) {
  const fs::path& dataPath = services.program.DataPath;
  Storage& storage = services.storage;
  const fs::path usual = EpsPathToLookFor(dataPath, header.identity);
  const fs::path saved =
      SaveFile(services.prompter,
               {.failure = failure,
                .path = usual,
                .filter = kEpsFilter,
                .companions = {".nte", ".sur"},
                .changed = "Files of this class already exist."},
               [&](const fs::path& path) {
                 const bool isUsual = path == usual;
                 NormaliseIdentity(header.identity);
                 const fs::path eps = isUsual ? EpsPath(storage, dataPath, header.identity) : path;
                 const std::string bytes = FormatEps(header, episodes);
                 const fs::path nte =
                     isUsual ? NtePath(storage, dataPath, header.identity) : Beside(path, ".nte");
                 if (isUsual) {
                   AskOnce(older, eps, bytes);
                   AskOnce(older, nte, FormatFieldNotes({.text = notes}));
                 }
                 ReplaceFile(storage, eps, bytes);
                 WriteFieldNotes(storage, nte, {.text = notes});
               });
  elsewhere = saved == usual ? fs::path() : saved;
  return !saved.empty();
}

bool StoreSurvey(const Services& services, Identity& identity, const Survey& answers,
                 const fs::path& elsewhere, OlderFile older) {
  const fs::path& dataPath = services.program.DataPath;
  Storage& storage = services.storage;
  const fs::path usual = SurPathToLookFor(dataPath, identity);
  return !SaveFile(services.prompter,
                   {.failure = "The survey could not be written.",
                    .path = elsewhere.empty() ? usual : Beside(elsewhere, ".sur"),
                    .filter = kSurFilter,
                    .changed = usual.filename().string() + " already exists."},
                   [&](const fs::path& path) {
                     const bool isUsual = path == usual;
                     const fs::path sur = isUsual ? SurPath(storage, dataPath, identity) : path;
                     const SurFile file = {.identity = identity, .answers = answers};
                     if (isUsual) AskOnce(older, sur, FormatSur(file));
                     WriteSurFile(storage, sur, file);
                   })
              .empty();
}

bool StoreNotes(const Services& services, const std::string& notes) {
  Program& program = services.program;
  Storage& storage = services.storage;
  const fs::path usual = NtePathToLookFor(program.DataPath, program.identity);
  return !SaveFile(services.prompter,
                   {.failure = "The field notes could not be saved.",
                    .path = usual,
                    .filter = kNteFilter},
                   [&](const fs::path& path) {
                     const fs::path nte = path == usual
                                              ? NtePath(storage, program.DataPath, program.identity)
                                              : path;
                     WriteFieldNotes(storage, nte, {.text = notes});
                   })
              .empty();
}

void ForgetKept(const Services& services) {
  try {
    services.recovery.Remove();
  } catch (const FileError& error) {
    services.prompter.Tell(
        "The class is stored, but its recovery file could not be removed. The class will be "
        "offered again.",
        error.what());
  }
}

}  // namespace orvex
