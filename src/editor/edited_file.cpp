#include "editor/edited_file.h"

#include <system_error>
#include <utility>

#include "model/prompter.h"
#include "model/screens.h"
#include "store/choose_file.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/format_error.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFilter = "EPS files (*.EPS)|*.EPS";

/// Passes what the reader has to say on to the user.
class ReadingAloud : public EpsReadEvents {
 public:
  explicit ReadingAloud(Prompter& prompter) : prompter_(prompter) {}

  bool ContinueWithEarlierVersion() override {
    return prompter_.AskOkCancel(
        "EPS file created by an earlier version of ORVEX. Continue anyway?");
  }
  void FirstSegmentRepaired(int ep) override {
    prompter_.Tell("An inconsistency is found in activity coding of first segment in episode #" +
                   std::to_string(ep) + ".\nIt's been corrected.");
    repaired_ = true;
  }
  bool Repaired() const { return repaired_; }

 private:
  Prompter& prompter_;
  bool repaired_ = false;
};

}  // namespace

EditedFile::EditedFile(fs::path path, EpsHeader header, std::string bytes)
    : path_(std::move(path)), header_(std::move(header)), bytes_(std::move(bytes)) {}

bool EditedFile::Save(const Services& services, const EpisodeList& episodes) {
  const std::string bytes = FormatEps(header_, episodes);
  fs::path target = path_;
  for (;;) {
    // The dialog for saving has asked already whether a file may be replaced.
    Answer answer = target == path_ ? MayReplace(services.prompter, bytes) : Answer::yes;
    if (answer == Answer::yes) {
      try {
        ReplaceFile(services.storage, target, bytes);
        path_ = target;
        bytes_ = bytes;
        return true;
      } catch (const FileError& error) {
        answer = services.prompter.Ask(
            {.text = "The file could not be saved. Try again?\nNo lets you save it elsewhere.",
             .buttons = Buttons::yesNoCancel,
             .defaultAnswer = Answer::yes,
             .details = error.what()});
        if (answer == Answer::yes) continue;
      }
    }
    if (answer == Answer::cancel) return false;
    target = services.prompter
                 .AskSaveFile({.folder = target.parent_path(),
                               .filter = kFilter,
                               .defaultName = target.filename().string()})
                 .path;
    if (target.empty()) return false;
  }
}

/// False when another program has written the file since, and its content is to stay. A file that
/// is gone replaces nothing; neither does one that holds what is to be written.
Answer EditedFile::MayReplace(Prompter& prompter, const std::string& bytes) {
  std::error_code unknown;
  if (!fs::exists(path_, unknown) && !unknown) return Answer::yes;
  std::string found;
  std::string details = path_.string();
  try {
    found = ReadFile(path_);
    if (found == bytes_ || found == bytes) return Answer::yes;
  } catch (const FileError& error) {
    details = error.what();
  }
  const Answer answer = prompter.Ask(
      {.text =
           "The file was changed by another program. Replace it?\nNo lets you save it elsewhere.",
       .buttons = Buttons::yesNoCancel,
       .defaultAnswer = Answer::cancel,
       .details = details});
  // Asking once is enough for the content that the user has given up.
  if (answer == Answer::yes) bytes_ = std::move(found);
  return answer;
}

Opening OpenForEditing(const Services& services, const fs::path& path) {
  Opening opening;
  ReadingAloud events(services.prompter);
  try {
    const std::string bytes = ReadFile(path);
    EpsObservation read = ParseEps(bytes, events);
    opening.opened.emplace(OpenedFile{.file = {path, std::move(read.header), bytes},
                                      .episodes = std::move(read.Episodes),
                                      .repaired = events.Repaired()});
  } catch (const FileError& error) {
    services.prompter.Tell("The file could not be read.", error.what());
  } catch (const FormatError& error) {
    services.prompter.Tell("Invalid file format.", path.string() + ": " + error.what());
    opening.programEnds = true;
  } catch (const ReadingDeclined&) {
    opening.programEnds = true;
  }
  if (opening.programEnds) services.screens.EndProgram();
  return opening;
}

fs::path ChooseEpisodeFile(const Services& services) {
  return ChooseFile(services, kFilter);
}

}  // namespace orvex
