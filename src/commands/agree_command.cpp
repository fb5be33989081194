#include "commands/agree_command.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "agreement/agreement_study.h"
#include "agreement/agreement_text.h"
#include "agreement/comparison.h"
#include "agreement/paper_line.h"
#include "agreement/study_tables.h"
#include "commands/named_file.h"
#include "commands/named_sources.h"
#include "commands/progress.h"
#include "store/durable_file.h"
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

void TellRemarks(const Agreement& agreement, const Console& console) {
  const std::string names =
      Printable(agreement.first.file) + ", " + Printable(agreement.second.file);
  for (const std::string& remark : agreement.remarks) {
    console.err << names << ": warning: " << remark << "\n";
  }
}

ExitCode CompareTwo(const AgreeCommand& command, Storage& storage, const Console& console) {
  std::array<ObservedClass, 2> classes;
  for (std::size_t i = 0; i < classes.size(); ++i) {
    const std::filesystem::path& file = command.sources[i];
    if (!Done(file, console, [&] { classes[i] = ReadObservedClass(file); })) return kFailed;
  }
  Comparison comparison(std::move(classes[0]), std::move(classes[1]), command.options);
  if (!command.pairs.empty() &&
      !Done(command.pairs, console, [&] { comparison.LoadPairs(command.pairs); })) {
    return kFailed;
  }
  const Agreement& agreement = comparison.Result();
  TellRemarks(agreement, console);
  console.out << (command.json ? AgreementJson(agreement) + "\n"
                               : ShownText(TextOf(agreement) + "\n" + PaperLine(agreement) + "\n"));
  if (!command.savePairs.empty() && !Done(command.savePairs, console, [&] {
        comparison.SavePairs(command.savePairs, storage);
      })) {
    return kFailed;
  }
  return agreement.isWhole ? kDone : kFailed;
}

/// Writes the tables into `folder`. None takes the place of an earlier one before all are written.
void WriteTables(const AgreementStudy& study, const std::filesystem::path& folder,
                 const FileList& list, Storage& storage) {
  std::vector<std::unique_ptr<FileReplacement>> files;
  for (const AgreementTable& table : AgreementTables(study)) {
    const std::filesystem::path path = folder / table.fileName;
    RequireNoSource(path, list);
    files.push_back(std::make_unique<FileReplacement>(storage, path));
    files.back()->Write(table.text);
    files.back()->BringToDisk();
  }
  for (const auto& file : files) file->Commit();
}

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

ExitCode CompareStudy(const AgreeCommand& command, Storage& storage, const Console& console) {
  auto sources = ReadSources(command.sources, console);
  if (!sources) return kFailed;
  const FileList list = FilesOf(FileKind::episodes, *std::move(sources));
  if (!HasFiles(list, WordsFor(FileKind::episodes), console)) return kFailed;
  std::vector<std::filesystem::path> files;
  for (const ListedFile& file : list.files) files.push_back(PathOf(file, FileKind::episodes));

  Progress progress(console, "pair");
  const AgreementStudy study =
      CompareAll(files, command.options, console.interrupted,
                 [&](std::size_t done, std::size_t of) { progress.Show(done, of); });
  progress.Clear();
  if (console.interrupted && console.interrupted()) {
    console.err << "Interrupted. Nothing was written.\n";
    return kFailed;
  }
  for (const Problem& problem : study.unread) Tell(problem, "", console);
  for (const std::string& remark : study.remarks) console.err << "warning: " << remark << "\n";
  for (const StudyPair& pair : study.pairs) TellRemarks(pair.agreement, console);
  if (study.pairs.empty()) {
    console.err << "There are no two observations of the same school, class and date.\n";
    return kFailed;
  }
  bool isWhole = study.unread.empty() && list.unread.empty();
  for (const StudyPair& pair : study.pairs) isWhole &= pair.agreement.isWhole;
  if (!command.csv.empty() &&
      !Done(command.csv, console, [&] { WriteTables(study, command.csv, list, storage); })) {
    isWhole = false;
  }
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
