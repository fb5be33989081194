#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "tables/table_export.h"

namespace orvex {

/// Lets the user choose a list file, beginning where such lists are kept. The data folder is then
/// the one that the dialog ended in. Empty when no file was chosen.
std::filesystem::path ChooseListFile(const Services& services, ExportKind kind);

/// The main menu's command: the table of the list that the user chooses takes the menu's place.
void ExportChosenList(const Services& services, ExportKind kind);

/// Makes a table from a list of files while the user watches, and then ends the program; the main
/// menu comes back when it cannot be made to its end.
class ExportForm {
 public:
  /// Reads the list. That it cannot be read is told at the end.
  ExportForm(const Services& services, ExportKind kind, const std::filesystem::path& listFile);

  /// True while there are files to work on and nothing has ended the table.
  bool Working() const;
  /// Works on the next file; to be called for as long as it is working.
  void Work();
  /// Leaves everything as it was before the export.
  void Stop();
  /// Stores the table and tells the user what has come of it.
  void Finish();

  std::size_t Count() const { return list_.files.size(); }
  std::size_t Done() const { return export_ ? export_->Done() : 0; }
  /// The files' names, in order, and which of them is in work; beyond the last when none is left.
  std::string NameOf(std::size_t file) const;
  std::size_t InWork() const;
  /// "12 of 300 files".
  std::string CountText() const;

 private:
  struct Failure {
    std::string text;
    std::string details;
  };

  TableExport& Export();
  bool Store(const std::filesystem::path& table);
  Failure Stopped() const;
  Failure Ended(bool stored) const;
  void GoBack(const Failure& failure);
  TableKind KindThatWarns(ExportKind kind);
  std::string WarningsText() const;

  Services services_;
  TableKind kind_;
  FileList list_;
  std::filesystem::path table_;
  std::optional<TableExport> export_;
  std::vector<std::string> warnings_;
  std::optional<Failure> failure_;  ///< the list could not be read
  std::optional<Problem> problem_;  ///< of the file that ended the table, which stays in work
  bool cannotBeWritten_ = false;
  bool stopped_ = false;
};

}  // namespace orvex
