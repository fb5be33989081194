#include "tables/survey_row.h"

#include <cstddef>

#include "model/survey_scheme.h"
#include "store/sur_file.h"

namespace orvex {

void AppendSurveyRow(const FileNumbers& file, const Survey& answers, std::string& rows) {
  rows.append(file.school).append(",").append(file.classNum).append(",").append(file.observation);
  for (std::size_t group = 0; group < kCheckGroups; ++group) {
    for (std::size_t item = 0; item < SurveyGroups()[group].items.size(); ++item) {
      rows += answers.checks[group].test(item) ? ", 1 " : ", 0 ";
    }
  }
  for (const std::int16_t rating : answers.ratings) {
    rows.append(", ").append(std::to_string(rating)).append(" ");
  }
  rows += "\r\n";
}

void AppendSurveyRow(const std::filesystem::path& path, FileRows& rows) {
  const FileNumbers numbers = NumbersOf(path);
  const SurFile file = ReadSurFile(path);
  AppendSurveyRow(numbers, file.answers, rows.text);
  WarnOfOtherNumbers(path, file.identity, rows.notes.WarnsOf(FileWarning::About::name));
}

}  // namespace orvex
