#include "editor/load_episodes.h"

#include <memory>
#include <string>
#include <utility>

#include "desk/choose_file.h"
#include "desk/prompter.h"
#include "desk/recent_places.h"
#include "desk/save_file.h"
#include "editor/save_warning.h"
#include "model/texts.h"
#include "recovery/unfinished_file.h"
#include "store/checksum.h"
#include "store/eps_differences.h"
#include "store/eps_reader.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/printable_text.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Passes the reader's reports on to the user.
class ReadingAloud : public EpsReadEvents {
 public:
  explicit ReadingAloud(Prompter& prompter) : prompter_(prompter) {}

  bool ContinueWithEarlierVersion() override {
    return prompter_.AskOkCancel(Say(Text::askEarlierVersion, {kEarlierVersionText}));
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

/// Warns the user of what a save would drop or change in the file.
void TellDifferences(Prompter& prompter, const fs::path& path, const std::string& bytes,
                     const EpsObservation& read) {
  if (const auto message = SaveWarning(DifferencesOf(bytes, read), path)) prompter.Ask(*message);
}

/// Reads the changes taken up, even if the file is gone; without any, the file at `path`.
LoadedEpisodes Read(const Services& services, const fs::path& path, const TakenUp& takenUp) {
  const auto& changes = takenUp.changes;
  ReadingAloud events(services.prompter);
  const std::string bytes = takenUp.FileBytes(path);
  EpsObservation read = ParseEps(changes ? *changes->bytes : bytes, events);
  TellProtection(services.prompter, path);
  if (!changes) TellDifferences(services.prompter, path, bytes, read);
  return {.file = {path, std::move(read.header), bytes, takenUp.Opened(bytes),
                   std::make_unique<FileKeeper>(services, path, bytes, changes)},
          .episodes = std::move(read.Episodes),
          .repaired = events.Repaired() || changes};
}

/// Why a file was not read. The user has been told.
enum class Unread { cannotBeRead, isRefused };

/// Calls `read`, which reads the file at `path`. Nothing if that succeeds.
template <typename Read>
std::optional<Unread> TryToRead(const Services& services, const fs::path& path, Text invalid,
                                Read read) {
  try {
    read();
    return std::nullopt;
  } catch (const FileError& error) {
    services.prompter.Tell(Say(Text::fileUnreadable), error.what());
    return Unread::cannotBeRead;
  } catch (const FormatError& error) {
    services.prompter.Tell(Say(invalid), Printable(path.native()) + ": " + error.what());
  } catch (const ReadingDeclined&) {
    // The user knows.
  }
  return Unread::isRefused;
}

}  // namespace

LoadOutcome LoadEpisodes(const Services& services, const fs::path& path, Kept kept) {
  LoadOutcome outcome;
  const TakenUp takenUp = TakeUpChanges(services, path, kept);
  if (takenUp.isLeft) return outcome;
  const Text invalid = takenUp.changes ? Text::changesUnreadable : Text::invalidEpisodeFile;
  const auto unread = TryToRead(services, path, invalid,
                                [&] { outcome.loaded.emplace(Read(services, path, takenUp)); });
  if (outcome.loaded) RememberRecent(services, {RecentKind::episodes, path});
  outcome.isRefused = unread == Unread::isRefused && !takenUp.changes;
  if (outcome.isRefused) services.screens.EndActivity();
  return outcome;
}

std::optional<EpsObservation> ReadForReports(const Services& services, const fs::path& path) {
  std::optional<EpsObservation> read;
  TryToRead(services, path, Text::invalidEpisodeFile, [&] {
    ReadingAloud events(services.prompter);
    read = ReadEpsFile(path, events);
  });
  return read;
}

fs::path ChooseEpisodeFile(const Services& services) {
  return ChooseFile(services, kEpsFilter);
}

bool EditChosenEpisodes(const Services& services) {
  const fs::path path = ChooseEpisodeFile(services);
  if (path.empty() || !services.screens.ShowEpisodeEditor(path, Kept::areOffered)) return false;
  services.screens.Close(Screen::mainMenu);
  return true;
}

}  // namespace orvex
