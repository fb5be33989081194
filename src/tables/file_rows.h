#pragma once

#include <string>

#include "tables/file_notes.h"
#include "tables/observation_content.h"

namespace orvex {

/// What a file contributes to a table.
struct FileRows {
  std::string text;                ///< of a text file: whole rows, with their line ends
  ObservationContent observation;  ///< of a database: what its rows are made of
  FileNotes notes;
};

}  // namespace orvex
