#pragma once

#include <filesystem>
#include <string>

#include "model/survey.h"
#include "tables/file_list.h"

namespace orvex {

/// Appends the row of one survey, line end included.
void AppendSurveyRow(const FileNumbers& file, const Survey& answers, std::string& rows);

/// Appends the row of a survey file. Throws FileError and FormatError. `warnOfName` is told when
/// the identity line says other numbers than the name.
void AppendSurveyRow(const std::filesystem::path& path, const Warn& warnOfName, std::string& rows);

}  // namespace orvex
