#include "tables/observation_content.h"

#include "store/eps_reader.h"
#include "study/file_kind.h"
#include "study/reading_with_warnings.h"

namespace orvex {

void ReadEpisodeFile(const std::filesystem::path& file, FileNotes& notes,
                     ObservationContent& files) {
  ReadingWithWarnings events(notes.WarnsOf(FileWarning::About::content));
  files.episodes = ReadEpsFile(file, events);
  files.log = ReadLogFacts(Companion(file, FileKind::sessionLog));
  WarnOfOtherNumbers(file, files.episodes->header.identity,
                     notes.WarnsOf(FileWarning::About::name));
}

void ReadSurveyFile(const std::filesystem::path& file, FileNotes& notes,
                    ObservationContent& files) {
  files.hasSurvey = true;
  files.survey = ReadSurFile(file);
  WarnOfOtherNumbers(file, files.survey->identity, notes.WarnsOf(FileWarning::About::name));
}

void ReadSurveyOf(const std::filesystem::path& episodeFile, FileNotes& notes,
                  ObservationContent& files) {
  const std::filesystem::path file = Companion(episodeFile, FileKind::survey);
  if (file.empty()) return;
  const auto problem = ProblemOf(file, [&] { ReadSurveyFile(file, notes, files); });
  if (!problem) return;
  const std::string line = problem->line > 0 ? "line " + std::to_string(problem->line) + ": " : "";
  notes.WarnsOf(FileWarning::About::content)("the survey is left out: " + line + problem->text);
}

}  // namespace orvex
