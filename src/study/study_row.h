#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/program.h"
#include "study/file_kind.h"
#include "study/observation_files.h"
#include "study/observation_summary.h"
#include "study/question_block.h"

namespace orvex {

/// One observation of a study: its files, and what they say of it.
struct StudyRow {
  std::string name;  ///< tells it from all other observations of the study
  ObservationPaths files;
  /// From the episode file; where there is none that can be read, as far as the survey, the log, a
  /// kept class or the file's name says it.
  Identity identity;
  std::string date;                           ///< "mm-dd-yyyy"; from the same files
  std::string start;                          ///< when the class began, by its log, "hh:mm:ss"
  std::optional<ObservationSummary> summary;  ///< nothing without a readable episode file
  std::optional<int> openStatements;          ///< nothing without a readable survey
  bool hasNotes = false;                      ///< there are field notes that say something
  std::vector<std::string> problems;          ///< sentences that say what is wrong, and where

  bool Has(FileKind kind) const { return !files[static_cast<std::size_t>(kind)].empty(); }
  std::filesystem::path File(FileKind kind) const { return files[static_cast<std::size_t>(kind)]; }
};

/// What has been read of an observation.
struct ReadObservation {
  StudyRow row;
  ObservationStamps stamps;  ///< of the files, taken before they were read
  std::optional<QuestionBlock> questions;
};

/// Reads the files of an observation. What cannot be read is among its problems. `withQuestions`
/// also gives the questions one by one.
ReadObservation ReadTheObservation(const ObservationFiles& files, bool withQuestions);

}  // namespace orvex
