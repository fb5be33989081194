#include "export/export_form.h"

#include "model/program.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "store/choose_file.h"
#include "store/file_error.h"

namespace orvex {

TableKind TableOf(ExportKind kind) {
  return kind == ExportKind::epsData ? EpsData({}) : SurData();
}

std::filesystem::path ChooseListFile(const Services& services, ExportKind kind) {
  services.program.DataPath =
      kind == ExportKind::epsData ? R"(n:\disc\varnel\eps)" : R"(n:\disc\varnel\sur)";
  return ChooseFile(services, "TXT files (*.TXT)|*.TXT");
}

void ExportChosenList(const Services& services, ExportKind kind) {
  const std::filesystem::path list = ChooseListFile(services, kind);
  if (list.empty()) return;
  services.screens.ShowListOfFiles(list, kind == ExportKind::surData);
  services.screens.Close(Screen::mainMenu);
}

ExportForm::ExportForm(const Services& services, ExportKind kind,
                       const std::filesystem::path& listFile)
    : services_(services), kind_(TableOf(kind)), list_{listFile, {}} {
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
  return failed_ ? Done() - 1 : Done();
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
  if (!running_) return;
  if (!trouble_.empty()) return GoBack("The list of files could not be read.", trouble_);
  try {
    Work();
  } catch (const FileError& error) {
    GoBack(kind_.fileName + " could not be written.", error.what());
  }
}

void ExportForm::Work() {
  if (!export_) {
    export_.emplace(services_.storage, kind_, list_, list_.Folder(), BadFile::endsTheTable);
  }
  if (export_->Finished() || stopping_) return End();
  if (const auto problem = export_->Step()) EndWith(*problem);
}

void ExportForm::End() {
  export_->Commit();
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
  failed_ = true;
  export_->Commit();
  std::string place = "Line " + std::to_string(problem.listLine) + " of " +
                      list_.path.filename().string() + ": " + problem.file.filename().string();
  if (problem.line > 0) place += ", line " + std::to_string(problem.line);
  GoBack(problem.line > 0 ? "Invalid file format" : "A file of the list could not be exported.",
         place + ": " + problem.text + ".\n" + TableSoFar());
}

void ExportForm::GoBack(const std::string& text, const std::string& details) {
  running_ = false;
  services_.prompter.Tell(text, details);
  services_.screens.Show(Screen::mainMenu);
}

std::string ExportForm::TableSoFar() const {
  const std::size_t rows = export_->Rows();
  return kind_.fileName + " holds the " + std::to_string(rows) + (rows == 1 ? " row" : " rows") +
         " written so far.";
}

}  // namespace orvex
