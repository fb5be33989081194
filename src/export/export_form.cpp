#include "export/export_form.h"

#include "model/program.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "store/choose_file.h"
#include "store/file_error.h"
#include "store/save_file.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTxtFilter = "TXT files (*.TXT)|*.TXT";

}  // namespace

TableKind TableOf(ExportKind kind) {
  return kind == ExportKind::epsData ? EpsData({}) : SurData();
}

fs::path ChooseListFile(const Services& services, ExportKind kind) {
  services.program.DataPath =
      kind == ExportKind::epsData ? R"(n:\disc\varnel\eps)" : R"(n:\disc\varnel\sur)";
  return ChooseFile(services, kTxtFilter);
}

void ExportChosenList(const Services& services, ExportKind kind) {
  const fs::path list = ChooseListFile(services, kind);
  if (list.empty()) return;
  services.screens.ShowListOfFiles(list, kind == ExportKind::surData);
  services.screens.Close(Screen::mainMenu);
}

ExportForm::ExportForm(const Services& services, ExportKind kind, const fs::path& listFile)
    : services_(services),
      kind_(TableOf(kind)),
      list_{listFile, {}},
      table_(list_.Folder() / kind_.fileName) {
  try {
    list_ = ReadFileList(listFile);
  } catch (const FileError& error) {
    trouble_ = error.what();
  }
}

std::string ExportForm::NameOf(std::size_t file) const {
  return list_.files.at(file).name + kind_.extension;
}

std::size_t ExportForm::InWork() const {
  return problem_ ? Done() - 1 : Done();
}

std::string ExportForm::CountText() const {
  return std::to_string(Done()) + " of " + std::to_string(Count()) +
         (Count() == 1 ? " file" : " files");
}

void ExportForm::Stop() {
  stopping_ = true;
}

void ExportForm::Tick() {
  // A message box lets the form's timer go on.
  if (!running_ || asking_) return;
  if (!trouble_.empty()) return GoBack("The list of files could not be read.", trouble_);
  const bool last = stopping_ || done_ == Count();
  asking_ = true;
  const fs::path table = SaveFile(
      services_.prompter,
      {.failure = kind_.fileName + " could not be written.", .path = table_, .filter = kTxtFilter},
      [&](const fs::path& path) { Work(path, last); });
  asking_ = false;
  if (table.empty()) return GoBack();
  table_ = table;
  done_ = export_->Done();
  if (problem_) {
    EndWith(*problem_);
  } else if (last) {
    End();
  }
}

/// Works on the next file, or stores the table when that was the last. A table that could not be
/// written is made anew, up to where it was.
void ExportForm::Work(const fs::path& table, bool last) try {
  if (!export_) {
    export_.emplace(services_.storage, kind_, list_, table, BadFile::endsTheTable);
  }
  const std::size_t goal = last ? done_ : done_ + 1;
  while (!problem_ && export_->Done() < goal) problem_ = export_->Step();
  if (last || problem_) export_->Commit();
} catch (...) {
  export_.reset();
  problem_.reset();
  throw;
}

void ExportForm::End() {
  if (!export_->Finished()) {
    const std::string files = "The files from " + NameOf(Done()) + " on are not in it.";
    return GoBack("The export was stopped.", TableSoFar() + " " + files);
  }
  running_ = false;
  services_.prompter.Tell(kind_.fileName.substr(0, kind_.fileName.find('.')) +
                          " file has been created.");
  services_.screens.EndProgram();
}

void ExportForm::EndWith(const Problem& problem) {
  std::string place = "Line " + std::to_string(problem.listLine) + " of " +
                      list_.path.filename().string() + ": " + problem.file.filename().string();
  if (problem.line > 0) place += ", line " + std::to_string(problem.line);
  GoBack(problem.line > 0 ? "Invalid file format" : "A file of the list could not be exported.",
         place + ": " + problem.text + ".\n" + TableSoFar());
}

void ExportForm::GoBack(const std::string& text, const std::string& details) {
  running_ = false;
  services_.prompter.Tell(text, details);
  GoBack();
}

void ExportForm::GoBack() {
  running_ = false;
  services_.screens.Show(Screen::mainMenu);
}

std::string ExportForm::TableSoFar() const {
  const std::size_t rows = export_->Rows();
  const bool usual = table_.parent_path() == list_.Folder();
  return (usual ? table_.filename() : table_).string() + " holds the " + std::to_string(rows) +
         (rows == 1 ? " row" : " rows") + " written so far.";
}

}  // namespace orvex
