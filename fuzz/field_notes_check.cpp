#include "fuzz/checks.h"
#include "store/field_notes.h"

namespace orvex::fuzz {

std::optional<std::string> CheckFieldNotes(std::string_view bytes) {
  const FieldNotes notes = ParseFieldNotes(std::string(bytes));
  const std::string written = FormatFieldNotes(notes);
  Require(ParseFieldNotes(written).text == notes.text, "notes come back as they were");
  return written;
}

}  // namespace orvex::fuzz
