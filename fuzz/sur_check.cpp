#include "fuzz/checks.h"
#include "store/sur_file.h"
#include "tables/survey_row.h"

namespace orvex::fuzz {
namespace {

SurFile Parse(std::string_view bytes) {
  return ParseSur(std::string(bytes));
}

}  // namespace

std::optional<std::string> CheckSur(std::string_view bytes) {
  auto file = Accepted(bytes, Parse);
  if (!file) return std::nullopt;
  const std::string written = FormatSur(*file);
  const auto again = Accepted(written, Parse);
  Require(again.has_value(), "what is written can be read");
  file->answers.other = OneLine(file->answers.other);
  Require(again->answers == file->answers, "the answers come back as they were");
  Require(again->identity == file->identity, "the identity comes back as it was");
  std::string row;
  AppendSurveyRow({"5", "12", "3"}, file->answers, row);
  Require(std::ranges::count(row, '\n') == 1, "a survey has one row");
  return written;
}

}  // namespace orvex::fuzz
