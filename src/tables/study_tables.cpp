#include "tables/study_tables.h"

#include <algorithm>
#include <utility>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "model/texts.h"
#include "store/file_error.h"
#include "store/printable_text.h"
#include "tables/repeats.h"
#include "tables/sqlite_tables.h"

namespace orvex {
namespace {

FileList ListOf(const std::vector<StudyObservation>& observations) {
  FileList list;
  list.sources.push_back({Source::Kind::folder, {}});
  for (const StudyObservation& observation : observations) {
    const auto add = [&](FileKind kind, const std::filesystem::path& file) {
      if (!file.empty()) list.files.push_back({observation.name, file, kind});
    };
    add(FileKind::episodes, observation.episodes);
    add(FileKind::survey, observation.survey);
  }
  return list;
}

}  // namespace

StudyTables::StudyTables(const Services& services,
                         const std::vector<StudyObservation>& observations, TablesChoice choice)
    : services_(services), choice_(std::move(choice)) {
  const FileList list = ListOf(observations);
  for (const ExportKind kind : choice_.exports) Add(orvex::TableOf(kind), list);
  if (choice_.database) {
    Add(SqliteTableKind(), list);
  } else {
    for (const TidyTable table : choice_.tables) Add(TidyTableKind(table), list, table);
  }
  std::ranges::reverse(waiting_);
  for (const Repeat& repeat : RepeatsIn(FilesOf(FileKind::episodes, list))) {
    warnings_.push_back(repeat.text + ".");
  }
}

void StudyTables::Add(TableKind kind, const FileList& list, std::optional<TidyTable> tidy) {
  FileList files = FilesFor(kind, list);
  if (files.files.empty()) {
    notMade_.push_back(Say(Text::tableWithoutFiles, {kind.fileName, WordsFor(kind.files)}));
    return;
  }
  count_ += files.files.size();
  waiting_.push_back({std::move(kind), std::move(files), tidy});
}

std::size_t StudyTables::Done() const {
  return doneBefore_ + (export_ ? export_->Done() : 0);
}

std::string StudyTables::ProgressText() const {
  if (waiting_.empty()) return "";
  const Job& job = waiting_.back();
  const std::size_t done = export_ ? export_->Done() : 0;
  return Say(Text::tableProgress, {job.kind.fileName, done,
                                   Counted(job.files.files.size(), Text::oneFile, Text::files)});
}

TableExport& StudyTables::Export(const std::filesystem::path& table) {
  if (!export_ || export_->Table() != table) {
    export_.reset();
    const Job& job = waiting_.back();
    export_.emplace(services_.storage, job.kind, job.files, table, BadFile::isSkipped);
  }
  return *export_;
}

void StudyTables::Step(const std::filesystem::path& table) {
  Note(Export(table).Step());
}

void StudyTables::Note(const FileNotes& notes) {
  const auto tell = [this](const Problem& problem, std::vector<std::string>& where) {
    std::string sentence = problem.Sentence();
    if (told_.insert(sentence).second) where.push_back(std::move(sentence));
  };
  for (const auto& problem : {notes.problem, notes.surveyProblem}) {
    if (problem) tell(*problem, problems_);
  }
  for (const FileWarning& warning : notes.warnings) {
    tell({notes.file, 0, warning.text}, warnings_);
  }
}

void StudyTables::Work() {
  const std::filesystem::path table = TableOf(waiting_.back());
  try {
    if (!Export(table).Finished()) return Step(table);
  } catch (const FileError&) {
    export_.reset();  // `Finish` meets the cause again, and tells it
  }
  Finish();
}

/// Completes the table and stores it at `table`. False when all files were bad and an earlier table
/// stays.
bool StudyTables::Store(const std::filesystem::path& table) try {
  while (!Export(table).Finished()) Step(table);
  return Export(table).Commit();
} catch (...) {
  export_.reset();
  throw;
}

void StudyTables::Finish() {
  const Job& job = waiting_.back();
  const std::string& name = job.kind.fileName;
  bool stored = false;
  const std::filesystem::path saved = SaveFile(
      services_.prompter, {.failure = Say(Text::tableNotWritten, {name}), .path = TableOf(job)},
      [&](const std::filesystem::path& table) { stored = Store(table); });
  if (saved.empty()) return Stop();
  if (stored) {
    made_.push_back(Say(Text::tableMade, {name, Counted(export_->Rows(), Text::oneRow, Text::rows),
                                          Counted(export_->Files(), Text::oneFile, Text::files)}));
    if (job.tidy && choice_.codebook) AddCodebook(*job.tidy, saved);
  } else {
    notMade_.push_back(WithoutNewTable(saved));
  }
  doneBefore_ += export_->Count();
  export_.reset();
  waiting_.pop_back();
}

void StudyTables::AddCodebook(TidyTable table, const std::filesystem::path& tableFile) {
  const std::string name = CodebookFileName(table, *choice_.codebook);
  const std::filesystem::path saved = SaveFile(
      services_.prompter,
      {.failure = Say(Text::tableNotWritten, {name}), .path = choice_.folder / name},
      [&](const std::filesystem::path& path) {
        ReplaceFile(services_.storage, path, Codebook(table, *choice_.codebook, tableFile));
      });
  (saved.empty() ? notMade_ : made_)
      .push_back(saved.empty() ? WithoutNewTable(choice_.folder / name) : name);
}

void StudyTables::Stop() {
  export_.reset();
  while (!waiting_.empty()) {
    notMade_.push_back(WithoutNewTable(TableOf(waiting_.back())));
    waiting_.pop_back();
  }
}

std::string StudyTables::Outcome() const {
  std::string text;
  const auto add = [&text](const std::vector<std::string>& lines, const std::string& heading) {
    if (lines.empty()) return;
    if (!text.empty()) text += "\n";
    if (!heading.empty()) text += heading + "\n";
    for (const std::string& line : lines) text += line + "\n";
  };
  add(made_, "");
  add(notMade_, "");
  add(problems_, Say(Text::filesLeftOut));
  add(warnings_, Say(Text::filesDoubtful));
  return text;
}

}  // namespace orvex
