#pragma once

#include <filesystem>
#include <string>

#include "model/survey.h"
#include "study/file_numbers.h"

namespace orvex {

/// Appends the row of one survey, including its line end.
void AppendSurveyRow(const FileNumbers& file, const Survey& answers, std::string& rows);

/// Appends the row of a survey file. `warnOfName` is called when the identity line and the
/// file's name disagree about the numbers. Throws FileError and FormatError.
void AppendSurveyRow(const std::filesystem::path& path, const Warn& warnOfName, std::string& rows);

}  // namespace orvex
