#pragma once

#include <filesystem>
#include <string>

#include "model/program.h"
#include "model/survey.h"
#include "store/text_encoding.h"

namespace orvex {

/// The filter of dialogs that choose a survey file.
inline constexpr const char* kSurFilter = "SUR files (*.SUR)|*.SUR";

/// What a survey file holds: the three numbers of the observation, and the answers.
struct SurFile {
  Identity identity;
  Survey answers;
  Encoding encoding = Encoding::utf8;  ///< how the file was encoded, and is written again
};

/// Reads the bytes of a survey file. Throws FormatError.
SurFile ParseSur(std::string bytes);
/// Reads a survey file. Throws FormatError and FileError.
SurFile ReadSurFile(const std::filesystem::path& path);

/// The bytes of a survey file.
std::string FormatSur(const SurFile& file);

}  // namespace orvex
