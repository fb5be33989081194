#include "tables/export_form.h"

#include <algorithm>
#include <utility>

#include "desk/choose_file.h"
#include "desk/prompter.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "model/texts.h"
#include "store/file_error.h"
#include "store/printable_text.h"
#include "tables/repeats.h"

namespace orvex {
std::filesystem::path ChooseListFile(const Services& services, ExportKind kind) {
  return ChooseFile(
      services, Say(Text::txtFiles),
      kind == ExportKind::epsData ? R"(n:\disc\varnel\eps)" : R"(n:\disc\varnel\sur)");
}

void ExportChosenList(const Services& services, ExportKind kind) {
  const std::filesystem::path list = ChooseListFile(services, kind);
  if (list.empty()) return;
  services.screens.ShowListOfFiles(list, kind);
  services.screens.Close(Screen::mainMenu);
}

ExportForm::ExportForm(const Services& services, ExportKind kind,
                       const std::filesystem::path& listFile)
    : services_(services),
      kind_(TableOf(kind)),
      list_{.sources = {{Source::Kind::list, listFile}}, .files = {}},
      table_(listFile.parent_path() / kind_.fileName) {
  if (const auto problem =
          ProblemOf(listFile, [&] { list_ = FilesOf(kind_.files, ReadFileList(listFile)); })) {
    failure_ = {Say(Text::listUnreadable), problem->Text()};
  }
}

const std::filesystem::path& ExportForm::ListPath() const {
  return list_.sources.front().path;
}

std::string ExportForm::WarningsText() const {
  constexpr std::size_t kMost = 8;
  std::vector<std::string> warnings;
  for (const Repeat& repeat : RepeatsIn(list_)) {
    warnings.push_back(Say(Text::repeatInList, {repeat.file->line, repeat.text}));
  }
  warnings.insert(warnings.end(), fileWarnings_.begin(), fileWarnings_.end());
  std::string text;
  for (std::size_t i = 0; i < std::min(warnings.size(), kMost); ++i) {
    text += (i > 0 ? "\n" : "") + warnings[i];
  }
  if (warnings.size() > kMost) {
    text += "\n" + Say(Text::moreWarnings, {warnings.size() - kMost});
  }
  return text;
}

std::string ExportForm::NameOf(std::size_t file) const {
  return list_.files.at(file).name + std::string(ExtensionOf(kind_.files));
}

std::size_t ExportForm::InWork() const {
  return problem_ ? Done() - 1 : Done();
}

std::string ExportForm::CountText() const {
  return Say(Text::filesDone, {Done(), Counted(Count(), Text::oneFile, Text::files)});
}

bool ExportForm::Working() const {
  return !stopped_ && !failure_ && !cannotBeWritten_ && !problem_ && Done() < Count();
}

TableExport& ExportForm::Export() {
  if (!export_) {
    fileWarnings_.clear();
    export_.emplace(services_.storage, kind_, list_, table_, BadFile::endsTheTable);
  }
  return *export_;
}

void ExportForm::Step() {
  FileNotes notes = Export().Step();
  // Only a name that disagrees is worth a word here; repairs and earlier versions pass silently.
  for (const FileWarning& warning : notes.warnings) {
    if (warning.about != FileWarning::About::name) continue;
    fileWarnings_.push_back(
        Say(Text::fileWarning, {Printable(notes.file.filename().native()), warning.text}));
  }
  problem_ = std::move(notes.problem);
}

void ExportForm::Work() {
  try {
    Step();
  } catch (const FileError&) {
    // Whatever the cause, `Finish` tells the user, who can then do something about it.
    export_.reset();
    cannotBeWritten_ = true;
  }
}

/// Completes the table and stores it at `table`. False when there was nothing new to store and
/// an earlier table stays.
bool ExportForm::Store(const std::filesystem::path& table) try {
  if (table != table_) export_.reset();
  table_ = table;
  while (!problem_ && Export().Done() < Count()) Step();
  return Export().Commit();
} catch (...) {
  export_.reset();
  problem_.reset();
  throw;
}

void ExportForm::Stop() {
  if (Working()) stopped_ = true;
}

void ExportForm::Finish() {
  if (stopped_) return GoBack(Stopped());
  if (failure_) return GoBack(*failure_);
  bool stored = false;
  const std::filesystem::path saved =
      SaveFile(services_.prompter,
               {.failure = Say(Text::tableNotWritten, {kind_.fileName}),
                .path = table_,
                .filter = Say(Text::txtFiles)},
               [&](const std::filesystem::path& table) { stored = Store(table); });
  if (saved.empty()) return services_.screens.Show(Screen::mainMenu);
  if (problem_) return GoBack(Ended(stored));
  services_.prompter.Tell(
      Say(Text::tableCreated, {kind_.fileName.substr(0, kind_.fileName.find('.'))}),
      WarningsText());
  services_.screens.EndProgram();
}

ExportForm::Failure ExportForm::Stopped() const {
  const ListedFile& next = list_.files[Done()];
  return {Say(Text::exportStopped),
          Say(Text::stoppedAt, {next.line, ListPath().filename().string(), NameOf(Done()),
                                WithoutNewTable(table_)})};
}

ExportForm::Failure ExportForm::Ended(bool stored) const {
  const bool elsewhere = table_.parent_path() != ListPath().parent_path();
  const std::string table = (elsewhere ? table_ : table_.filename()).string();
  const std::string rows = Counted(export_->Rows(), Text::oneRow, Text::rows);
  const std::string outcome =
      stored ? Say(Text::rowsWritten, {table, rows}) : WithoutNewTable(table_);
  const std::string list = ListPath().filename().string();
  const int listLine = list_.files[Done() - 1].line;
  const std::string file = Printable(problem_->file.filename().native());
  if (problem_->line > 0) {
    return {
        Say(Text::invalidFormat),
        Say(Text::problemAtLine, {listLine, list, file, problem_->line, problem_->text, outcome})};
  }
  return {Say(Text::fileNotExported),
          Say(Text::problemAt, {listLine, list, file, problem_->text, outcome})};
}

void ExportForm::GoBack(const Failure& failure) {
  services_.prompter.Tell(failure.text, failure.details);
  services_.screens.Show(Screen::mainMenu);
}

}  // namespace orvex
