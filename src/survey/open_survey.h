#pragma once

#include <filesystem>
#include <optional>

#include "store/services.h"
#include "survey/sur_file.h"

namespace orvex {

/// Lets the user choose a survey file and shows the survey form on it in the place of the main
/// menu, which stays when the file cannot be read. False when no file was chosen.
bool ChooseSurveyFile(const Services& services);

/// Reads a survey file. Nothing, when the user has been told that it could not be read.
std::optional<SurFile> LoadSurvey(const Services& services, const std::filesystem::path& path);

}  // namespace orvex
