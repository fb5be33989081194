#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "export/table_export.h"
#include "store/services.h"

namespace orvex {

/// The two tables that are made from the main menu.
enum class ExportKind { epsData, surData };
TableKind TableOf(ExportKind kind);

/// Lets the user choose a list file, beginning where such lists are kept. The data folder is then
/// the one that the dialog ended in. Empty when no file was chosen.
std::filesystem::path ChooseListFile(const Services& services, ExportKind kind);

/// The main menu's command: the table of the list that the user chooses takes the menu's place.
void ExportChosenList(const Services& services, ExportKind kind);

/// Makes a table from a list of files while the user watches, and then ends the program; the main
/// menu comes back when it cannot be made to its end.
class ExportForm {
 public:
  /// Reads the list. That it cannot be read is told with the first tick.
  ExportForm(const Services& services, ExportKind kind, const std::filesystem::path& listFile);

  /// Works on one file; to be called for as long as it is running. The last tick stores the table.
  void Tick();
  /// Ends the table with the file that is in work.
  void Stop();
  bool Running() const { return running_; }
  bool Stopping() const { return stopping_; }

  std::size_t Count() const { return list_.files.size(); }
  std::size_t Done() const { return done_; }
  /// The files' names, in order, and which of them is in work; beyond the last when none is left.
  std::string NameOf(std::size_t file) const;
  std::size_t InWork() const;
  /// "12 of 300 files".
  std::string CountText() const;

 private:
  void Work(const std::filesystem::path& table, bool last);
  void End();
  void EndWith(const Problem& problem);
  void GoBack(const std::string& text, const std::string& details);
  void GoBack();
  std::string TableSoFar() const;

  Services services_;
  TableKind kind_;
  FileList list_;
  std::string trouble_;  ///< why the list could not be read
  std::filesystem::path table_;
  std::optional<TableExport> export_;
  std::size_t done_ = 0;
  std::optional<Problem> problem_;  ///< what ended the table; its file stays the one in work
  bool asking_ = false;
  bool stopping_ = false;
  bool running_ = true;
};

}  // namespace orvex
