#include "commands/agree_command.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "agreement/agreement_study.h"
#include "agreement/agreement_text.h"
#include "agreement/pair_table.h"
#include "agreement/paper_line.h"
#include "agreement/study_tables.h"
#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "commands/progress.h"
#include "store/durable_file.h"
#include "store/file_error.h"
#include "store/printable_text.h"
#include "study/file_kind.h"
#include "study/problem.h"
#include "tables/agreement_json.h"
#include "tables/agreement_tables.h"
#include "tables/table_export.h"

namespace orvex {
namespace {

/// Runs `act`, which works on `file`. False, and told, when it could not be done.
template <typename Act>
bool Done(const std::filesystem::path& file, const Console& console, Act act) {
  const auto problem = ProblemOf(file, act);
  if (problem) Tell(*problem, "", console);
  return !problem;
}

/// Lines of tab-separated cells with the cells' texts made safe to show on a terminal.
std::string ShownText(std::string_view lines) {
  std::string shown;
  while (!lines.empty()) {
    const std::size_t cell = std::min(lines.find_first_of("\t\n"), lines.size());
    shown += Printable(lines.substr(0, cell));
    lines.remove_prefix(cell);
    if (lines.empty()) break;
    shown += lines.front();
    lines.remove_prefix(1);
  }
  return shown;
}

/// Tells what is unusual about a pair. The text says that itself.
void TellRemarks(const Agreement& agreement, const Console& console) {
  const std::string names =
      Printable(agreement.first.file) + ", " + Printable(agreement.second.file);
  for (const std::string& remark : agreement.remarks) {
    console.err << names << ": warning: " << remark << "\n";
  }
}

/// Tells what is to be said of a file beside the agreement, and returns whether all could be read.
bool TellOf(const ObservedClass& observed, const AgreeCommand& command, const Console& console) {
  if (observed.surveyProblem) Tell(*observed.surveyProblem, "", console);
  for (const std::string& note : observed.notes) {
    if (command.json) Tell(Warning(observed.file, 0, note), "", console);
  }
  return !observed.surveyProblem;
}

ExitCode CompareTwo(const AgreeCommand& command, Storage& storage, const Console& console) {
  std::array<ObservedClass, 2> classes;
  bool areRead = true;
  for (std::size_t i = 0; i < classes.size(); ++i) {
    const std::filesystem::path& file = command.sources[i];
    areRead &= Done(file, console, [&] { classes[i] = ReadObservedClass(file); });
  }
  if (!areRead) return kFailed;
  const auto& [first, second] = classes;
  const AskedQuestions questions = QuestionsOf(first, second);
  std::optional<QuestionPairs> pairs;
  if (!command.pairs.empty() && !Done(command.pairs, console, [&] {
        pairs = ReadPairTable(command.pairs, questions.first.size(), questions.second.size());
      })) {
    return kFailed;
  }
  const Agreement agreement = Compare(first, second, questions, command.options, std::move(pairs));
  bool isWhole = true;
  for (const ObservedClass& observed : classes) isWhole &= TellOf(observed, command, console);
  if (command.json) TellRemarks(agreement, console);
  console.out << (command.json ? AgreementJson(agreement) + "\n"
                               : ShownText(TextOf(agreement) + "\n" + PaperLine(agreement) + "\n"));
  if (!command.savePairs.empty()) {
    isWhole &= Done(command.savePairs, console,
                    [&] { WritePairTable(command.savePairs, agreement.pairs, storage); });
  }
  return isWhole ? kDone : kFailed;
}

/// The files of a study's tables. Throws FileError when they cannot be written.
class TableFiles {
 public:
  /// Begins the tables in `folder`. They must not replace what `list` names.
  TableFiles(const std::filesystem::path& folder, const FileList& list, Storage& storage) {
    std::error_code unknown;
    if (!std::filesystem::is_directory(folder, unknown)) {
      throw FileError(folder, "there is no such folder");
    }
    for (const AgreementTable& table : AgreementTables()) {
      const std::filesystem::path path = folder / table.fileName;
      RequireNoSource(path, list);
      files_.push_back(std::make_unique<FileReplacement>(storage, path));
    }
  }
  /// Writes the tables. None takes the place of an earlier one before all are written.
  void Write(const AgreementStudy& study) {
    for (std::size_t i = 0; i < files_.size(); ++i) {
      files_[i]->Write(AgreementTables()[i].textOf(study));
      files_[i]->BringToDisk();
    }
    for (const auto& file : files_) file->Commit();
  }

 private:
  std::vector<std::unique_ptr<FileReplacement>> files_;
};

std::string JsonOf(const AgreementStudy& study) {
  std::string lines;
  for (const StudyPair& pair : study.pairs) lines += AgreementJson(pair.agreement) + "\n";
  return lines + AgreementStudyJson(study) + "\n";
}

std::string TextOf(const AgreementStudy& study) {
  std::string text;
  for (const FigureGrid& table :
       {PairsTable(study), ObserversTable(study), PooledTable(study.pooled), IccTable(study)}) {
    text += table.name + "\n" + table.TextOf() + "\n";
  }
  return ShownText(text + PaperLine(study) + "\n");
}

/// Compares the pairs among files while the user sees how far it is.
AgreementStudy CompareShown(const FileList& list, const ComparisonOptions& options,
                            const Console& console) {
  std::vector<std::filesystem::path> files;
  for (const ListedFile& file : list.files) files.push_back(PathOf(file, FileKind::episodes));
  Progress found(console, "file");
  Progress compared(console, "pair");
  return CompareAll(files, options, console.interrupted, [&](const StudyProgress& now) {
    if (now.step == StudyProgress::Step::finding) return found.Show(now.done, now.of);
    found.Clear();
    compared.Show(now.done, now.of);
  });
}

/// Tells what is to be said of a study beside its tables.
void TellOf(const AgreementStudy& study, const AgreeCommand& command, const Console& console) {
  for (const Problem& problem : study.unread) Tell(problem, "", console);
  for (const std::string& remark : study.remarks) console.err << "warning: " << remark << "\n";
  if (!command.json) return;
  for (const Problem& warning : study.warnings) Tell(warning, "", console);
  for (const StudyPair& pair : study.pairs) TellRemarks(pair.agreement, console);
}

ExitCode CompareStudy(const AgreeCommand& command, Storage& storage, const Console& console) {
  auto sources = ReadSources(command.sources, console);
  if (!sources) return kFailed;
  const FileList list = FilesOf(FileKind::episodes, *std::move(sources));
  if (!HasFiles(list, WordsFor(FileKind::episodes), console)) return kFailed;
  std::optional<TableFiles> tables;
  if (!command.csv.empty() &&
      !Done(command.csv, console, [&] { tables.emplace(command.csv, list, storage); })) {
    return kFailed;
  }
  const AgreementStudy study = CompareShown(list, command.options, console);
  if (console.interrupted && console.interrupted()) {
    console.err << "Interrupted. Nothing was written.\n";
    return kFailed;
  }
  TellOf(study, command, console);
  if (study.pairs.empty()) {
    console.err << "There are no two observations of the same school, class and date.\n";
    return kFailed;
  }
  bool isWhole = study.unread.empty() && list.unread.empty();
  if (tables) isWhole &= Done(command.csv, console, [&] { tables->Write(study); });
  console.out << (command.json ? JsonOf(study) : TextOf(study));
  return isWhole ? kDone : kFailed;
}

}  // namespace

bool AgreeCommand::IsOfTwo() const {
  return sources.size() == 2 && std::ranges::all_of(sources, [](const auto& source) {
           return KindOf(source) == FileKind::episodes;
         });
}

ExitCode RunAgree(const AgreeCommand& command, Storage& storage, const Console& console) {
  return command.IsOfTwo() ? CompareTwo(command, storage, console)
                           : CompareStudy(command, storage, console);
}

}  // namespace orvex
