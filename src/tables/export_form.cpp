#include "tables/export_form.h"

#include <algorithm>

#include "desk/choose_file.h"
#include "desk/prompter.h"
#include "desk/save_file.h"
#include "desk/screens.h"
#include "model/wording.h"
#include "store/file_error.h"
#include "store/printable_text.h"

namespace orvex {
namespace {

constexpr const char* kTxtFilter = "TXT files (*.TXT)|*.TXT";

}  // namespace

std::filesystem::path ChooseListFile(const Services& services, ExportKind kind) {
  return ChooseFile(
      services, kTxtFilter,
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
      kind_(KindThatWarns(kind)),
      list_{listFile, {}},
      table_(list_.Folder() / kind_.fileName) {
  if (const auto problem = ProblemOf(listFile, [&] { list_ = ReadFileList(listFile); })) {
    failure_ = {"The list of files could not be read.", problem->Text()};
  }
  for (const Repeat& repeat : RepeatsIn(list_)) {
    warnings_.push_back("Line " + std::to_string(repeat.line) + " of the list: " + repeat.text +
                        ".");
  }
}

/// Collects only the warnings about file names: they cast doubt on whose rows these are.
/// Repairs and earlier versions pass silently.
TableKind ExportForm::KindThatWarns(ExportKind kind) {
  return TableOf(kind,
                 {.ofReading = {}, .ofNames = [this](const auto& file, const auto& warning) {
                    warnings_.push_back(Printable(file.filename().native()) + ": " + warning + ".");
                  }});
}

std::string ExportForm::WarningsText() const {
  constexpr std::size_t kMost = 8;
  std::string text;
  for (std::size_t i = 0; i < std::min(warnings_.size(), kMost); ++i) {
    text += (i > 0 ? "\n" : "") + warnings_[i];
  }
  if (warnings_.size() > kMost) {
    text += "\nand " + std::to_string(warnings_.size() - kMost) + " more";
  }
  return text;
}

std::string ExportForm::NameOf(std::size_t file) const {
  return list_.files.at(file).name + kind_.extension;
}

std::size_t ExportForm::InWork() const {
  return problem_ ? Done() - 1 : Done();
}

std::string ExportForm::CountText() const {
  return std::to_string(Done()) + " of " + Counted(Count(), "file");
}

bool ExportForm::Working() const {
  return !stopped_ && !failure_ && !cannotBeWritten_ && !problem_ && Done() < Count();
}

TableExport& ExportForm::Export() {
  if (!export_) export_.emplace(services_.storage, kind_, list_, table_, BadFile::endsTheTable);
  return *export_;
}

void ExportForm::Work() {
  try {
    problem_ = Export().Step();
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
  while (!problem_ && Export().Done() < Count()) problem_ = Export().Step();
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
  const std::filesystem::path saved = SaveFile(
      services_.prompter,
      {.failure = kind_.fileName + " could not be written.", .path = table_, .filter = kTxtFilter},
      [&](const std::filesystem::path& table) { stored = Store(table); });
  if (saved.empty()) return services_.screens.Show(Screen::mainMenu);
  if (problem_) return GoBack(Ended(stored));
  services_.prompter.Tell(
      kind_.fileName.substr(0, kind_.fileName.find('.')) + " file has been created.",
      WarningsText());
  services_.screens.EndProgram();
}

ExportForm::Failure ExportForm::Stopped() const {
  const ListedFile& next = list_.files[Done()];
  return {"The export was stopped.", "It had come to line " + std::to_string(next.line) + " of " +
                                         list_.path.filename().string() + ": " + NameOf(Done()) +
                                         ".\n" + WithoutNewTable(table_)};
}

ExportForm::Failure ExportForm::Ended(bool stored) const {
  std::string place = "Line " + std::to_string(problem_->listLine) + " of " +
                      list_.path.filename().string() + ": " +
                      Printable(problem_->file.filename().native());
  if (problem_->line > 0) place += ", line " + std::to_string(problem_->line);
  const std::string rows = Counted(export_->Rows(), "row") + " written so far.";
  const bool elsewhere = table_.parent_path() != list_.Folder();
  const std::string table = (elsewhere ? table_ : table_.filename()).string();
  return {problem_->line > 0 ? "Invalid file format" : "A file of the list could not be exported.",
          place + ": " + problem_->text + ".\n" +
              (stored ? table + " holds the " + rows : WithoutNewTable(table_))};
}

void ExportForm::GoBack(const Failure& failure) {
  services_.prompter.Tell(failure.text, failure.details);
  services_.screens.Show(Screen::mainMenu);
}

}  // namespace orvex
