#include "study/study_row.h"

#include <exception>
#include <utility>

#include "model/texts.h"
#include "recovery/kept_class.h"
#include "recovery/unfinished_class.h"
#include "store/claim.h"
#include "store/eps_reader.h"
#include "store/field_notes.h"
#include "store/older_file.h"
#include "store/paths.h"
#include "store/printable_text.h"
#include "store/sur_file.h"
#include "study/file_numbers.h"
#include "study/log_facts.h"
#include "study/problem.h"
#include "study/reading_with_warnings.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

/// Reads the files of one observation into its row.
class Reading {
 public:
  Reading(const ObservationFiles& files, bool withQuestions)
      : files_(files), withQuestions_(withQuestions) {
    row_.name = files.name;
    row_.files = files.paths;
    const fs::path any = FirstOf(files.paths);
    before_ = NameBeforeOlder(any.stem().string());
    NameAfter(before_.empty() ? any : fs::path(before_), row_.identity);
    if (!IsNamed(row_.identity)) row_.identity = {};
  }

  ReadObservation Read() {
    try {
      ReadEpisodes();
      ReadSurvey();
      ReadLog();
      ReadNotes();
      ReadKept();
    } catch (const std::exception& error) {
      Add(Problem{FirstOf(files_.paths), 0, error.what()}.Sentence());
    }
    for (const std::string& path : files_.further) {
      Add(Say(Text::secondFile, {Printable(fs::path(path).filename().native())}));
    }
    return {.row = std::move(row_), .stamps = {}, .questions = std::move(questions_)};
  }

 private:
  void Add(std::string problem) { row_.problems.push_back(std::move(problem)); }

  /// Runs `act`, which works on `file`. True unless there was a problem.
  template <typename Act>
  bool Try(const fs::path& file, Act act) {
    const auto problem = ProblemOf(file, act);
    if (problem) Add(problem->Sentence());
    return !problem;
  }

  /// Compares the numbers in the file with those in its name. A file that was put aside still has
  /// the old name's.
  void CompareNumbers(const fs::path& file, const Identity& identity) {
    const fs::path named = before_.empty() ? file : fs::path(before_);
    if (const auto warning = OtherNumbers(named, identity))
      Add(Problem{file, 0, *warning}.Sentence());
  }

  void ReadEpisodes() {
    if (!row_.Has(FileKind::episodes)) {
      const bool alone = !row_.Has(FileKind::sessionLog) && !row_.Has(FileKind::keptClass);
      if (alone) Add(Say(Text::episodesMissing));
      return;
    }
    const fs::path file = row_.File(FileKind::episodes);
    ReadingWithWarnings events([&](const std::string& warning) {
      Add(Problem{file, 0, warning}.Sentence());
    });
    EpsObservation observation;
    if (!Try(file, [&] { observation = ReadEpsFile(file, events); })) return;
    row_.identity = observation.header.identity;
    row_.date = observation.header.ObservDate;
    row_.summary = Summarize(observation.Episodes);
    if (withQuestions_) questions_ = QuestionBlock(observation.Episodes);
    CompareNumbers(file, row_.identity);
    if (!before_.empty()) Add(Say(Text::putAsideOf, {Printable(before_)}));
  }

  void ReadSurvey() {
    if (!row_.Has(FileKind::survey)) {
      if (row_.Has(FileKind::episodes)) Add(Say(Text::surveyMissing));
      return;
    }
    const fs::path file = row_.File(FileKind::survey);
    SurFile survey;
    if (!Try(file, [&] { survey = ReadSurFile(file); })) return;
    row_.openStatements = survey.answers.Open();
    CompareNumbers(file, survey.identity);
    if (row_.summary) return;
    for (const auto number : kIdentityNumbers) row_.identity.*number = survey.identity.*number;
  }

  void ReadLog() {
    const bool hasEpisodes = row_.Has(FileKind::episodes);
    if (!row_.Has(FileKind::sessionLog)) {
      // Only a data folder has its logs for certain. Files that were collected elsewhere need none.
      if (hasEpisodes && IsInTree(row_.File(FileKind::episodes).parent_path()))
        Add(Say(Text::logMissing));
      return;
    }
    if (!hasEpisodes && !row_.Has(FileKind::keptClass)) {
      Add(before_.empty() ? Say(Text::classIsLost) : Say(Text::putAsideOf, {Printable(before_)}));
    }
    const auto log = ReadLogStart(row_.File(FileKind::sessionLog));
    if (!log) return;
    row_.start = log->start;
    if (row_.summary) return;
    row_.date = log->date;
    row_.identity.Initials = log->initials;
  }

  void ReadNotes() {
    if (!row_.Has(FileKind::fieldNotes)) return;
    const fs::path file = row_.File(FileKind::fieldNotes);
    Try(file, [&] { row_.hasNotes = !ReadFieldNotes(file).text.empty(); });
  }

  void ReadKept() {
    if (!row_.Has(FileKind::keptClass)) return;
    const fs::path file = row_.File(FileKind::keptClass);
    if (IsClaimed(file)) {
      Add(Say(Text::classIsRunning));
      return;
    }
    KeptClass kept;
    if (!Try(file, [&] { kept = ReadKeptClass(file); })) return;
    Add(TextOf(kept));
    if (row_.summary) return;
    row_.identity = kept.program.identity;
    row_.date = kept.moment.dateText;
  }

  const ObservationFiles& files_;
  const bool withQuestions_;
  std::string before_;  ///< the name before the files were put aside; "" if they were not
  StudyRow row_;
  std::optional<QuestionBlock> questions_;
};

}  // namespace

ReadObservation ReadTheObservation(const ObservationFiles& files, bool withQuestions) {
  const ObservationStamps stamps = StampsOf(files);
  ReadObservation read = Reading(files, withQuestions).Read();
  read.stamps = stamps;
  return read;
}

}  // namespace orvex
