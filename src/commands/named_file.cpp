#include "commands/named_file.h"

#include <string>

#include "store/eps_reader.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

/// Calls `read` and returns its result, or writes the problem to `console.err` and returns
/// nothing.
template <typename Read>
auto Reading(const std::filesystem::path& file, const std::string& place, const Console& console,
             Read read) {
  std::optional<decltype(read())> result;
  if (const auto problem = ProblemOf(file, [&] { result = read(); })) {
    Tell(*problem, place, console);
  }
  return result;
}

Warn WarnOn(const std::filesystem::path& file, const Console& console) {
  return
      [&](const std::string& warning) { console.err << Warning(file, 0, warning).Text() << "\n"; };
}

}  // namespace

std::optional<EpsObservation> ReadEpisodes(const std::filesystem::path& file,
                                           const std::string& place, const Console& console) {
  const Warn warn = WarnOn(file, console);
  ReadingWithWarnings events(warn);
  auto observation = Reading(file, place, console, [&] { return ReadEpsFile(file, events); });
  if (observation) WarnOfOtherNumbers(file, observation->header.identity, warn);
  return observation;
}

std::optional<SurFile> ReadSurvey(const std::filesystem::path& file, const std::string& place,
                                  const Console& console) {
  auto survey = Reading(file, place, console, [&] { return ReadSurFile(file); });
  if (survey) WarnOfOtherNumbers(file, survey->identity, WarnOn(file, console));
  return survey;
}

void Tell(const Problem& problem, const std::string& place, const Console& console) {
  console.err << problem.Text() << (place.empty() ? "" : " (" + place + ")") << "\n";
}

void Tell(const FileNotes& notes, const std::string& place, const Console& console) {
  for (const FileWarning& warning : notes.warnings) {
    console.err << Warning(notes.file, 0, warning.text).Text() << "\n";
  }
  for (const auto& problem : {notes.problem, notes.surveyProblem}) {
    if (problem) Tell(*problem, place, console);
  }
}

}  // namespace orvex
