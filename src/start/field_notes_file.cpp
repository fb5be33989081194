#include "start/field_notes_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "desk/choose_file.h"
#include "desk/prompter.h"
#include "desk/recent_places.h"
#include "desk/save_file.h"
#include "model/texts.h"
#include "recovery/unfinished_file.h"
#include "store/field_notes.h"
#include "store/file_error.h"

namespace orvex {

void EditChosenNotes(const Services& services) {
  const std::filesystem::path path = ChooseFile(services, kNteFilter);
  if (!path.empty()) EditFieldNotes(services, path);
}

void EditFieldNotes(const Services& services, const std::filesystem::path& path, Kept kept) {
  const TakenUp takenUp = TakeUpChanges(services, path, kept);
  if (takenUp.isLeft) return;
  std::string bytes;
  try {
    bytes = takenUp.FileBytes(path);
  } catch (const FileError& error) {
    // Never show half the notes: saving them would lose the other half.
    services.prompter.Tell(Say(Text::notesUnreadable), error.what());
    return;
  }
  TellProtection(services.prompter, path);
  RememberRecent(services, {RecentKind::fieldNotes, path});
  FileKeeper keeper(services, path, bytes, takenUp.changes);
  const OpenedFile opened = takenUp.Opened(bytes);
  FieldNotes notes = ParseFieldNotes(std::move(bytes));
  NotesPrompt prompt = {.notes = notes.text};
  if (takenUp.changes) prompt.draft = ParseFieldNotes(*takenUp.changes->bytes).text;
  prompt.typed = [&](const std::string& text) {
    std::optional<std::string> changed;
    if (text != prompt.notes) changed = FormatFieldNotes({text, notes.encoding});
    keeper.Keep(std::move(changed));
  };
  while (auto edited = services.prompter.AskNotes(prompt)) {
    notes.text = *edited;
    std::optional<std::string> givenUp;
    const std::filesystem::path saved =
        SaveFile(services.prompter,
                 {.failure = Say(Text::notesNotSaved), .path = path, .filter = kNteFilter},
                 [&](const std::filesystem::path& place) {
                   // For any other file, the save dialog has already asked whether to replace it.
                   if (place == path)
                     opened.RequireUnchanged(place, FormatFieldNotes(notes), givenUp);
                   WriteFieldNotes(services.storage, place, notes);
                 });
    if (!saved.empty()) return keeper.Drop();
    // What could not be saved goes back into the dialog.
    prompt.draft = std::move(edited);
  }
}

}  // namespace orvex
