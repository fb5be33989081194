#include "commands/check_command.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "model/dimensions.h"
#include "model/survey_scheme.h"
#include "model/validation.h"
#include "model/wording.h"
#include "store/printable_text.h"
#include "study/file_kind.h"

namespace orvex {
namespace {

/// What can be checked.
const std::string kEither = WordsFor(FileKind::episodes) + " or " + WordsFor(FileKind::survey);

struct Tally {
  std::size_t observations = 0;  ///< episode files that could be read
  std::size_t surveys = 0;
  std::size_t unread = 0;
  std::size_t questions = 0;
  std::size_t incomplete = 0;  ///< questions that are not fully coded
  std::size_t statements = 0;
  std::size_t open = 0;  ///< statements without a rating

  Tally& operator+=(const Tally& other) {
    observations += other.observations;
    surveys += other.surveys;
    unread += other.unread;
    questions += other.questions;
    incomplete += other.incomplete;
    statements += other.statements;
    open += other.open;
    return *this;
  }
};

/// The missing codes by name: "Uptake, Elaborated/Unelaborated".
std::string NamesOf(const MissingCodes& missing) {
  std::string names;
  const auto add = [&names](std::string_view name) {
    if (!names.empty()) names += ", ";
    names += name;
  };
  if (missing.text) add("the text of the question");
  for (const Dimension dimension : missing.dimensions) {
    add(SchemeOf(dimension).label);
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
    console.out << file << ": not rated: " << SurveyStatements()[i].text << "\n";
  }
}

void CheckFile(const std::filesystem::path& file, FileKind kind, const std::string& place,
               const Console& console, Tally& tally) {
  bool read = false;
  if (kind == FileKind::episodes) {
    const auto observation = ReadEpisodes(file, place, console);
    read = observation.has_value();
    if (read) CheckEpisodes(Printable(file.native()), observation->Episodes, console, tally);
    tally.observations += read;
  } else if (kind == FileKind::survey) {
    const auto survey = ReadSurvey(file, place, console);
    read = survey.has_value();
    if (read) CheckSurvey(Printable(file.native()), survey->answers, console, tally);
    tally.surveys += read;
  } else {
    Tell({file, 0, "expected an " + kEither}, place, console);
  }
  tally.unread += !read;
}

/// Checks the file, or all there is of an observation that is named without a file.
Tally CheckListed(const ListedFile& listed, const std::string& place, const Console& console) {
  Tally tally;
  if (listed.kind != FileKind::other) {
    CheckFile(listed.path, listed.kind, place, console, tally);
    return tally;
  }
  const std::filesystem::path episodes = PathOf(listed, FileKind::episodes);
  const std::filesystem::path survey = PathOf(listed, FileKind::survey);
  std::error_code unknown;
  const bool hasSurvey = std::filesystem::exists(survey, unknown);
  if (!hasSurvey || std::filesystem::exists(episodes, unknown)) {
    CheckFile(episodes, FileKind::episodes, place, console, tally);
  }
  if (hasSurvey) CheckFile(survey, FileKind::survey, place, console, tally);
  return tally;
}

/// The last line of the check. It leaves out kinds of file that were not given.
std::string TextOf(const Tally& tally) {
  std::string text = Counted(tally.observations + tally.surveys, "file") + " checked";
  std::string separator = ": ";
  const auto add = [&](std::size_t missing, std::size_t count, const char* noun, const char* what) {
    text += separator + std::to_string(missing) + " of " + Counted(count, noun) + what;
    separator = ", ";
  };
  if (tally.observations > 0) {
    add(tally.incomplete, tally.questions, "question", " not fully coded");
  }
  if (tally.surveys > 0) add(tally.open, tally.statements, "statement", " not rated");
  return text;
}

}  // namespace

ExitCode RunCheck(const std::vector<std::filesystem::path>& sources, const Console& console) {
  const auto list = ReadSources(sources, console);
  if (!list || !HasFiles(*list, kEither, console)) return kFailed;
  Tally tally;
  WorkOnFiles(
      *list, console,
      [&](const ListedFile& file, const Console& kept) {
        return CheckListed(file, PlaceOf(file, *list), kept);
      },
      [&](const Tally& ofFile) { tally += ofFile; });
  console.out << TextOf(tally) << "\n";
  if (tally.unread > 0) {
    console.err << Counted(tally.unread, "file") << " could not be read\n";
    return kFailed;
  }
  if (!list->unread.empty()) return kFailed;
  return tally.incomplete + tally.open > 0 ? kFound : kDone;
}

}  // namespace orvex
