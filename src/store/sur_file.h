#pragma once

#include <filesystem>
#include <string>

#include "model/program.h"
#include "model/survey.h"
#include "store/text_encoding.h"

namespace orvex {

/// For dialogs that choose a survey file.
inline constexpr const char* kSurFilter = "SUR files (*.SUR)|*.SUR";

/// What a survey file holds: the three numbers of the observation, and the answers.
struct SurFile {
  Identity identity;
  Survey answers;
  Encoding encoding = Encoding::utf8;  ///< how the file was spelled, and is spelled again
};

/// Reads the bytes of a survey file. Throws FormatError.
SurFile ParseSur(std::string bytes);
/// The same from a file. Throws FileError as well.
SurFile ReadSurFile(const std::filesystem::path& path);

/// The bytes of a survey file.
std::string FormatSur(const SurFile& file);

}  // namespace orvex
