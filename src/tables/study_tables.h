#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "desk/screens.h"
#include "desk/services.h"
#include "tables/codebook.h"
#include "tables/table_export.h"
#include "tables/tidy_tables.h"

namespace orvex {

/// Which tables to make of a study, and where.
struct TablesChoice {
  std::set<ExportKind> exports = {};
  std::set<TidyTable> tables = {};
  std::optional<CodebookKind> codebook = {};  ///< for each of `tables`
  bool database = false;                      ///< all tidy tables in one, instead of `tables`
  std::filesystem::path folder = {};

  bool IsEmpty() const { return exports.empty() && tables.empty() && !database; }
};

/// Makes the chosen tables of the observations of a study, one after another, while the user
/// watches. A file that cannot be read is left out of a table, and told once.
class StudyTables {
 public:
  StudyTables(const Services& services, const std::vector<StudyObservation>& observations,
              TablesChoice choice);

  /// True while something is left to do.
  bool Working() const { return !waiting_.empty(); }
  /// Does the next step: usually it adds a file to a table. Call it only while `Working()`. A table
  /// that cannot be written is told, and can be tried again; who gives it up gives up the rest.
  void Work();
  /// Leaves the tables that are not made yet as they were.
  void Stop();

  /// How many files have been read for all tables, and how many there are to read.
  std::size_t Done() const;
  std::size_t Count() const { return count_; }
  /// "questions.csv: 12 of 300 files"; empty when nothing is left to do.
  std::string ProgressText() const;
  /// What has been made, what has not, and what is wrong with the files: a line each.
  std::string Outcome() const;

 private:
  /// A table that is to be made.
  struct Job {
    TableKind kind;
    FileList files;
    std::optional<TidyTable> tidy = {};  ///< for its codebook
  };

  void Add(TableKind kind, const FileList& list, std::optional<TidyTable> tidy = {});
  std::filesystem::path TableOf(const Job& job) const { return choice_.folder / job.kind.fileName; }
  TableExport& Export(const std::filesystem::path& table);
  void Step(const std::filesystem::path& table);
  void Note(const FileNotes& notes);
  void Finish();
  bool Store(const std::filesystem::path& table);
  void AddCodebook(TidyTable table, const std::filesystem::path& tableFile);

  Services services_;
  TablesChoice choice_;
  std::vector<Job> waiting_;  ///< the last one is being made
  std::size_t count_ = 0;
  std::size_t doneBefore_ = 0;  ///< files of the tables that are finished
  std::optional<TableExport> export_;
  std::vector<std::string> made_;
  std::vector<std::string> notMade_;
  std::vector<std::string> problems_;
  std::vector<std::string> warnings_;
  std::set<std::string> told_;  ///< the problems and warnings, which several tables may meet
};

}  // namespace orvex
