#include "start/field_notes_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "model/prompter.h"
#include "store/choose_file.h"
#include "store/field_notes.h"
#include "store/file_error.h"

namespace orvex {

void EditFieldNotesFile(const Services& services) {
  const std::filesystem::path path = ChooseFile(services, "NOTE files (*.NTE)|*.NTE");
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
  while (auto edited = services.prompter.AskNotes(notes.text)) {
    notes.text = std::move(*edited);
    try {
      WriteFieldNotes(services.storage, path, notes);
      return;
    } catch (const FileError& error) {
      // What was typed goes back into the dialog, to be saved again or copied elsewhere.
      services.prompter.Tell("The field notes could not be saved.", error.what());
    }
  }
}

}  // namespace orvex
