#include "store/field_notes.h"

#include <string>

#include "store/durable_file.h"

namespace orvex {

void WriteFieldNotes(Storage& storage, const std::filesystem::path& path, std::string_view notes) {
  ReplaceFile(storage, path, std::string(notes) + "\r\n");
}

}  // namespace orvex
