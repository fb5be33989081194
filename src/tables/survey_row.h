#pragma once

#include <filesystem>
#include <string>

#include "model/survey.h"
#include "study/file_numbers.h"
#include "tables/file_rows.h"

namespace orvex {

/// Appends the row of one survey, including its line end.
void AppendSurveyRow(const FileNumbers& file, const Survey& answers, std::string& rows);

/// Appends the row of a survey file. Throws FileError and FormatError.
void AppendSurveyRow(const std::filesystem::path& path, FileRows& rows);

}  // namespace orvex
