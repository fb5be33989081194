#include "export/check_command.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "export/named_file.h"
#include "model/coding_scheme.h"
#include "model/counted.h"
#include "model/validation.h"
#include "survey/survey_scheme.h"

namespace orvex {
namespace {

struct Tally {
  std::size_t files = 0;
  std::size_t unread = 0;
  std::size_t questions = 0;
  std::size_t incomplete = 0;  ///< of the questions
  std::size_t statements = 0;
  std::size_t open = 0;  ///< of the statements
};

/// "Uptake, Elaborated/Unelaborated".
std::string NamesOf(const MissingCodes& missing) {
  std::string names;
  const auto add = [&names](std::string_view name) {
    if (!names.empty()) names += ", ";
    names += name;
  };
  if (missing.text) add("the text of the question");
  for (const Dimension dimension : missing.dimensions) {
    add(DimensionLabels[static_cast<std::size_t>(dimension)].Label);
  }
  return names;
}

void CheckEpisodes(const std::string& file, const EpisodeList& episodes, const Console& console,
                   Tally& tally) {
  for (std::size_t ep = 0; ep < episodes.size(); ++ep) {
    const auto& questions = episodes[ep].questions;
    tally.questions += questions.size();
    for (std::size_t q = 0; q < questions.size(); ++q) {
      const MissingCodes missing = FindMissingCodes(questions[q]);
      if (missing.None()) continue;
      ++tally.incomplete;
      console.out << file << ":" << ep + 1 << ":" << q + 1 << ": missing " << NamesOf(missing)
                  << "\n";
    }
  }
}

void CheckSurvey(const std::string& file, const Survey& answers, const Console& console,
                 Tally& tally) {
  tally.statements += answers.ratings.size();
  for (std::size_t i = 0; i < answers.ratings.size(); ++i) {
    if (answers.ratings[i] != kUncoded) continue;
    ++tally.open;
    console.out << file << ": not rated: " << PlainText(SurveyStatements()[i].text) << "\n";
  }
}

void CheckFile(const std::filesystem::path& file, const Console& console, Tally& tally) {
  const FileKind kind = KindOf(file);
  bool read = false;
  if (kind == FileKind::episodes) {
    const auto observation = ReadEpisodes(file, console);
    read = observation.has_value();
    if (read) CheckEpisodes(Shown(file), observation->Episodes, console, tally);
  } else if (kind == FileKind::survey) {
    const auto survey = ReadSurvey(file, console);
    read = survey.has_value();
    if (read) CheckSurvey(Shown(file), survey->answers, console, tally);
  } else {
    RefuseKind(file, "an episode file (.eps) or a survey file (.sur)", console);
  }
  ++(read ? tally.files : tally.unread);
}

}  // namespace

ExitCode RunCheck(const std::vector<std::filesystem::path>& files, const Console& console) {
  Tally tally;
  for (const std::filesystem::path& file : files) CheckFile(file, console, tally);
  console.out << Counted(tally.files, "file") << " checked: " << tally.incomplete << " of "
              << Counted(tally.questions, "question") << " not fully coded, " << tally.open
              << " of " << Counted(tally.statements, "statement") << " not rated\n";
  if (tally.unread > 0) {
    console.err << Counted(tally.unread, "file") << " could not be read\n";
    return kFailed;
  }
  return tally.incomplete + tally.open > 0 ? kFound : kDone;
}

}  // namespace orvex
