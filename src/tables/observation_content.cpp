#include "tables/observation_content.h"

#include "store/eps_reader.h"
#include "study/file_kind.h"
#include "study/reading_with_warnings.h"

namespace orvex {

void ReadEpisodeFile(const std::filesystem::path& file, FileNotes& notes,
                     ObservationContent& content) {
  ReadingWithWarnings events(notes.WarnsOf(FileWarning::About::content));
  content.episodes = ReadEpsFile(file, events);
  content.log = ReadLogFacts(Companion(file, FileKind::sessionLog));
  WarnOfOtherNumbers(file, content.episodes->header.identity,
                     notes.WarnsOf(FileWarning::About::name));
}

void ReadSurveyFile(const std::filesystem::path& file, FileNotes& notes,
                    ObservationContent& content) {
  content.hasSurvey = true;
  content.survey = ReadSurFile(file);
  WarnOfOtherNumbers(file, content.survey->identity, notes.WarnsOf(FileWarning::About::name));
}

void ReadSurveyOf(const std::filesystem::path& episodeFile, FileNotes& notes,
                  ObservationContent& content) {
  const std::filesystem::path file = Companion(episodeFile, FileKind::survey);
  if (file.empty()) return;
  FileNotes ofSurvey = {.file = file};
  notes.surveyProblem = ProblemOf(file, [&] { ReadSurveyFile(file, ofSurvey, content); });
  for (const FileWarning& warning : ofSurvey.warnings) {
    notes.warnings.push_back({warning.about, "the survey: " + warning.text});
  }
}

}  // namespace orvex
