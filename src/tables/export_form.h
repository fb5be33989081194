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

/// Lets the user choose a list file, starting in the folder where such lists are kept. The
/// folder the dialog ends in becomes the data folder. Empty when no file was chosen.
std::filesystem::path ChooseListFile(const Services& services, ExportKind kind);

/// Runs the main menu's command: lets the user choose a list, then replaces the menu with the
/// form that makes its table.
void ExportChosenList(const Services& services, ExportKind kind);

/// Makes a table from a list of files while the user watches, then ends the program. Returns to
/// the main menu instead when the table cannot be completed.
class ExportForm {
 public:
  /// Reads the list. An error in it is reported by `Finish`.
  ExportForm(const Services& services, ExportKind kind, const std::filesystem::path& listFile);

  /// True while files are left and nothing has stopped the work.
  bool Working() const;
  /// Processes the next file. Call it only while `Working()`.
  void Work();
  /// Abandons the export and leaves everything as it was before.
  void Stop();
  /// Stores the table and tells the user how it went.
  void Finish();

  std::size_t Count() const { return list_.files.size(); }
  std::size_t Done() const { return export_ ? export_->Done() : 0; }
  /// The name of file number `file`, counted from 0.
  std::string NameOf(std::size_t file) const;
  /// The index of the file being processed; past the last one when none is left.
  std::size_t InWork() const;
  /// "12 of 300 files".
  std::string CountText() const;

 private:
  struct Failure {
    std::string text;
    std::string details;
  };

  const std::filesystem::path& ListPath() const;
  TableExport& Export();
  void Step();
  bool Store(const std::filesystem::path& table);
  Failure Stopped() const;
  Failure Ended(bool stored) const;
  void GoBack(const Failure& failure);
  std::string WarningsText() const;

  Services services_;
  TableKind kind_;
  FileList list_;
  std::filesystem::path table_;
  std::optional<TableExport> export_;
  std::vector<std::string> fileWarnings_;
  std::optional<Failure> failure_;  ///< set when the list could not be read
  std::optional<Problem> problem_;  ///< about the file that ended the table
  bool cannotBeWritten_ = false;
  bool stopped_ = false;
};

}  // namespace orvex
