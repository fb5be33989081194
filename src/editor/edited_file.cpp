#include "editor/edited_file.h"

#include <system_error>
#include <utility>

#include "desk/choose_file.h"
#include "desk/prompter.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "editor/told_at_opening.h"
#include "recovery/unfinished_file.h"
#include "store/checksum.h"
#include "store/durable_file.h"
#include "store/eps_differences.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/older_file.h"
#include "store/shown_text.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Passes what the reader has to say on to the user.
class ReadingAloud : public EpsReadEvents {
 public:
  explicit ReadingAloud(Prompter& prompter) : prompter_(prompter) {}

  bool ContinueWithEarlierVersion() override {
    return prompter_.AskOkCancel(std::string(kEarlierVersionText) + " Continue anyway?");
  }
  void FirstSegmentRepaired(int ep) override {
    prompter_.Tell(RepairedText(ep));
    repaired_ = true;
  }
  bool Repaired() const { return repaired_; }

 private:
  Prompter& prompter_;
  bool repaired_ = false;
};

/// What a file holds that was read before.
std::string ReadAgain(const fs::path& path) {
  try {
    return ReadFile(path);
  } catch (const FileError& error) {
    throw FileError(path, "it can no longer be read: " + error.Cause());
  }
}

}  // namespace

EditedFile::EditedFile(fs::path path, EpsHeader header, std::string bytes)
    : path_(std::move(path)),
      header_(std::move(header)),
      bytes_(std::move(bytes)),
      observed_(bytes_.empty() ? std::nullopt : std::optional(bytes_)) {}

bool EditedFile::Save(const Services& services, const EpisodeList& episodes) {
  const std::string bytes = FormatEps(header_, episodes);
  std::optional<std::string> givenUp;
  const fs::path saved =
      SaveFile(services.prompter,
               {.failure = "The file could not be saved.", .path = path_, .filter = kEpsFilter},
               [&](const fs::path& path) {
                 // The dialog for saving has asked already whether another file may be replaced.
                 if (path == path_) {
                   RequireUnchanged(bytes, givenUp);
                   KeepAsObserved(services.storage);
                 }
                 ReplaceFile(services.storage, path, bytes);
               });
  if (saved.empty()) return false;
  path_ = saved;
  bytes_ = bytes;
  observed_.reset();
  return true;
}

/// Throws FileError: without it the file is not to be replaced.
void EditedFile::KeepAsObserved(Storage& storage) const {
  const fs::path kept = ObservedPath(path_);
  if (observed_ && !fs::exists(fs::symlink_status(kept))) ReplaceFile(storage, kept, *observed_);
}

/// Throws FileChanged when another program has written the file since, and FileError when it cannot
/// be read any more. A file that is gone replaces nothing; neither does one that holds what is to
/// be written. `givenUp` is what has been found there before: asking once is enough for a content
/// that the user has given up.
void EditedFile::RequireUnchanged(const std::string& bytes,
                                  std::optional<std::string>& givenUp) const {
  std::error_code unknown;
  if (!fs::exists(path_, unknown) && !unknown) return;
  std::string found = ReadAgain(path_);
  if (found == bytes_ || found == bytes || givenUp == found) return;
  givenUp = std::move(found);
  throw FileChanged(path_.string());
}

namespace {

/// Tells what a save would drop of the file, or change in it.
void TellDifferences(Prompter& prompter, const fs::path& path, const std::string& bytes,
                     const EpsObservation& read) {
  if (const auto message = MessageOf(DifferencesOf(bytes, read), path)) prompter.Ask(*message);
}

/// Reads the file at `path`, or the changes to it that are taken up, also when it is gone.
OpenedFile Read(const Services& services, const fs::path& path, const TakenUp& takenUp) {
  const auto& changes = takenUp.changes;
  ReadingAloud events(services.prompter);
  const std::string bytes = takenUp.FileBytes(path);
  EpsObservation read = ParseEps(changes ? *changes->bytes : bytes, events);
  TellProtection(services.prompter, path);
  if (!changes) TellDifferences(services.prompter, path, bytes, read);
  OpenedFile opened = {.file = {path, std::move(read.header), bytes},
                       .episodes = std::move(read.Episodes),
                       .repaired = events.Repaired() || changes,
                       .keeper = std::make_unique<FileKeeper>(services, path, bytes, changes)};
  if (changes && changes->base != Checksum(bytes)) opened.file.Distrust();
  return opened;
}

}  // namespace

Opening OpenForEditing(const Services& services, const fs::path& path, Kept kept) {
  Opening opening;
  const TakenUp takenUp = TakeUpChanges(services, path, kept);
  if (takenUp.isLeft) return opening;
  try {
    opening.opened.emplace(Read(services, path, takenUp));
  } catch (const FileError& error) {
    services.prompter.Tell("The file could not be read.", error.what());
  } catch (const FormatError& error) {
    services.prompter.Tell(takenUp.changes ? kChangesUnreadable : "Invalid file format.",
                           Shown(path.native()) + ": " + error.what());
    opening.programEnds = !takenUp.changes;
  } catch (const ReadingDeclined&) {
    opening.programEnds = true;
  }
  if (opening.programEnds) services.screens.EndProgram();
  return opening;
}

fs::path ChooseEpisodeFile(const Services& services) {
  return ChooseFile(services, kEpsFilter);
}

}  // namespace orvex
