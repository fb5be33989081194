#include "commands/report_command.h"

#include <filesystem>
#include <string>
#include <utility>

#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "store/printable_text.h"
#include "store/text_encoding.h"
#include "study/file_kind.h"
#include "tables/observation_json.h"

namespace orvex {
namespace {

/// The header with its texts made safe to show on a terminal.
EpsHeader ShownHeader(EpsHeader header) {
  Identity& identity = header.identity;
  for (std::string* text : {&identity.SchoolNum, &identity.ClassNum, &identity.ObservNum,
                            &identity.Initials, &header.ObservDate}) {
    *text = Printable(*text);
  }
  return header;
}

std::string ReportText(const EpsObservation& observation) {
  const EpsHeader header = ShownHeader(observation.header);
  const Identity& identity = header.identity;
  std::string text = TextOf(MakeTimeSummary(header, observation.Episodes));
  int number = 0;
  for (const Episode& episode : observation.Episodes) {
    ++number;
    text += "\n";
    if (episode.questions.empty()) {
      text += EpisodeTitle(identity, number) + "\tno questions\n";
      continue;
    }
    text += TextOf(MakeQuestionStatistics(identity, number, episode)) + "\n" +
            TextOf(MakeQuestionPlot(identity, number, episode));
  }
  return text;
}

/// Writes the reports of one file. `heading` is printed before the text. False when something could
/// not be read.
bool Report(const std::filesystem::path& file, bool json, const std::string& heading,
            const std::string& place, const Console& console) {
  ObservationContent content = {.name = Decode(file.string()).text};
  content.episodes = ReadEpisodes(file, place, console);
  if (!content.episodes) return false;
  if (!json) {
    console.out << heading << ReportText(*content.episodes);
    return true;
  }
  FileNotes ofSurvey = {.file = file};
  ReadSurveyOf(file, ofSurvey, content);
  Tell(ofSurvey, place, console);
  content.log = ReadLogFacts(Companion(file, FileKind::sessionLog));
  console.out << ObservationJson(content) << "\n";
  return !ofSurvey.HaveProblems();
}

}  // namespace

ExitCode RunReport(const ReportCommand& command, const Console& console) {
  auto sources = ReadSources(command.sources, console);
  if (!sources) return kFailed;
  const FileList list = FilesOf(FileKind::episodes, *std::move(sources));
  if (!HasFiles(list, WordsFor(FileKind::episodes), console)) return kFailed;
  bool whole = list.unread.empty();
  const auto report = [&](const ListedFile& file, const Console& kept) {
    const std::filesystem::path path = PathOf(file, FileKind::episodes);
    std::string heading = list.files.size() > 1 ? Printable(path.native()) + ":\n\n" : "";
    if (&file != &list.files.front()) heading.insert(0, "\n\n");
    return Report(path, command.json, heading, PlaceOf(file, list), kept);
  };
  WorkOnFiles(list, console, report, [&](bool ofFile) { whole &= ofFile; });
  return whole ? kDone : kFailed;
}

}  // namespace orvex
