#include "commands/report_command.h"

#include <optional>
#include <string>

#include "commands/named_file.h"
#include "reports/episode_origin.h"
#include "reports/question_plot.h"
#include "reports/question_statistics.h"
#include "reports/time_summary.h"
#include "store/printable_text.h"
#include "tables/file_list.h"
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

/// Reads the survey next to an episode file into `survey`, if there is one. False when it
/// cannot be read.
bool ReadSurveyBeside(const std::filesystem::path& eps, const Console& console,
                      std::optional<SurFile>& survey) {
  const auto file = WithExtension(eps.parent_path() / eps.stem(), ".sur");
  std::error_code unknown;
  if (!std::filesystem::exists(file, unknown)) return true;
  survey = ReadSurvey(file, console);
  return survey.has_value();
}

/// Writes the reports of one file. `place` is printed before the text. False when something
/// could not be read.
bool Report(const std::filesystem::path& file, bool json, const std::string& place,
            const Console& console) {
  if (KindOf(file) != FileKind::episodes) {
    RefuseKind(file, "an episode file (.eps)", console);
    return false;
  }
  const auto observation = ReadEpisodes(file, console);
  if (!observation) return false;
  if (!json) {
    console.out << place << ReportText(*observation);
    return true;
  }
  std::optional<SurFile> survey;
  const bool whole = ReadSurveyBeside(file, console, survey);
  console.out << ObservationJson(file, *observation, survey) << "\n";
  return whole;
}

}  // namespace

ExitCode RunReport(const ReportCommand& command, const Console& console) {
  bool whole = true;
  const bool several = command.files.size() > 1;
  for (const std::filesystem::path& file : command.files) {
    std::string place = several ? Printable(file.native()) + ":\n\n" : "";
    if (&file != &command.files.front()) place.insert(0, "\n\n");
    whole &= Report(file, command.json, place, console);
  }
  return whole ? kDone : kFailed;
}

}  // namespace orvex
