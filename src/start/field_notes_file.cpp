#include "start/field_notes_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "model/prompter.h"
#include "store/choose_file.h"
#include "store/field_notes.h"
#include "store/file_error.h"
#include "store/save_file.h"

namespace orvex {

void EditFieldNotesFile(const Services& services) {
  const std::filesystem::path path = ChooseFile(services, kNteFilter);
  if (!path.empty()) EditFieldNotes(services, path);
}

void EditFieldNotes(const Services& services, const std::filesystem::path& path) {
  FieldNotes notes;
  try {
    notes = ReadFieldNotes(path);
  } catch (const FileError& error) {
    // Half the notes in the dialog would be half a file after "&Save".
    services.prompter.Tell("The field notes could not be read.", error.what());
    return;
  }
  NotesPrompt prompt = {.notes = notes.text};
  while (auto edited = services.prompter.AskNotes(prompt)) {
    notes.text = *edited;
    const std::filesystem::path saved = SaveFile(
        services.prompter,
        {.failure = "The field notes could not be saved.", .path = path, .filter = kNteFilter},
        [&](const std::filesystem::path& place) {
          WriteFieldNotes(services.storage, place, notes);
        });
    if (!saved.empty()) return;
    // What could not be saved goes back into the dialog.
    prompt.draft = std::move(edited);
  }
}

}  // namespace orvex
