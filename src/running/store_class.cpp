#include "running/store_class.h"

#include <cstdint>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "model/program.h"
#include "model/texts.h"
#include "store/checksum.h"
#include "store/durable_file.h"
#include "store/eps_writer.h"
#include "store/field_notes.h"
#include "store/file_error.h"
#include "store/older_file.h"
#include "store/paths.h"
#include "store/sur_file.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Replaces the files of a class, keeps those that are not its own, and tells the user at the end.
class OwnFiles {
 public:
  explicit OwnFiles(const Services& services) : services_(services) {}
  ~OwnFiles() { TellOfOlder(services_.prompter, older_); }
  OwnFiles(const OwnFiles&) = delete;
  OwnFiles& operator=(const OwnFiles&) = delete;

  /// `stored` is the checksum of what the class last stored in this kind of file.
  void Replace(const fs::path& path, const std::string& bytes, std::uint64_t& stored) {
    older_.push_back(ReplaceOwn(services_.storage, path, bytes, IsOwn(path, bytes, stored)));
    stored = Checksum(bytes);
  }

 private:
  static bool IsOwn(const fs::path& path, const std::string& bytes, std::uint64_t stored) {
    std::error_code unknown;
    if (!fs::exists(path, unknown)) return true;
    try {
      const std::string there = ReadFile(path);
      return there == bytes || Checksum(there) == stored;
    } catch (const FileError&) {
      return false;
    }
  }

  const Services& services_;
  std::vector<std::string> older_;
};

}  // namespace

bool StoreClass(const Services& services, const std::string& failure, EpsHeader& header,
                const EpisodeList& episodes, RunningClass& running) {
  const fs::path& dataPath = services.program.DataPath;
  Storage& storage = services.storage;
  const fs::path usual = EpsPath(dataPath, header.identity);
  OwnFiles files(services);
  const fs::path saved = SaveFile(
      services.prompter,
      {.failure = failure, .path = usual, .filter = kEpsFilter, .companions = {".nte", ".sur"}},
      [&](const fs::path& path) {
        const bool isUsual = path == usual;
        NormaliseIdentity(header.identity);
        const fs::path eps = isUsual ? MakeEpsPath(storage, dataPath, header.identity) : path;
        files.Replace(eps, FormatEps(header, episodes), running.stored.episodes);
        const fs::path nte =
            isUsual ? MakeNtePath(storage, dataPath, header.identity) : Beside(path, ".nte");
        files.Replace(nte, FormatFieldNotes({.text = running.fieldNotes}), running.stored.notes);
      });
  running.storedElsewhere = saved == usual ? fs::path() : saved;
  return !saved.empty();
}

bool StoreSurvey(const Services& services, Identity& identity, RunningClass& running) {
  const fs::path& dataPath = services.program.DataPath;
  Storage& storage = services.storage;
  const fs::path usual = SurPath(dataPath, identity);
  const fs::path& elsewhere = running.storedElsewhere;
  OwnFiles files(services);
  const fs::path saved = SaveFile(
      services.prompter,
      {.failure = Say(Text::surveyNotWritten),
       .path = elsewhere.empty() ? usual : Beside(elsewhere, ".sur"),
       .filter = kSurFilter},
      [&](const fs::path& path) {
        const fs::path sur = path == usual ? MakeSurPath(storage, dataPath, identity) : path;
        files.Replace(sur, FormatSur({.identity = identity, .answers = running.survey}),
                      running.stored.survey);
      });
  return !saved.empty();
}

bool StoreNotes(const Services& services, RunningClass& running) {
  const fs::path& dataPath = services.program.DataPath;
  Identity& identity = services.program.identity;
  const fs::path usual = NtePath(dataPath, identity);
  OwnFiles files(services);
  const fs::path saved = SaveFile(
      services.prompter, {.failure = Say(Text::notesNotSaved), .path = usual, .filter = kNteFilter},
      [&](const fs::path& path) {
        const fs::path nte =
            path == usual ? MakeNtePath(services.storage, dataPath, identity) : path;
        files.Replace(nte, FormatFieldNotes({.text = running.fieldNotes}), running.stored.notes);
      });
  return !saved.empty();
}

void TellOfOlder(Prompter& prompter, const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    if (!name.empty()) list += "\n" + name;
  }
  if (!list.empty()) prompter.Tell(Say(Text::olderKept, {list}));
}

}  // namespace orvex
