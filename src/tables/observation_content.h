#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "store/eps_file.h"
#include "store/sur_file.h"
#include "study/log_facts.h"
#include "tables/file_notes.h"

namespace orvex {

/// What the files of an observation hold, as far as a table needs them.
struct ObservationContent {
  std::string name = {};  ///< what the observation is called in the list of content
  std::optional<EpsObservation> episodes = {};
  bool hasSurvey = false;  ///< there is a survey file, even if it cannot be read
  std::optional<SurFile> survey = {};
  std::optional<LogFacts> log = {};
};

// These read into `content`, note what is doubtful, and throw FileError and FormatError.

/// Reads an episode file, and the session log that belongs to it.
void ReadEpisodeFile(const std::filesystem::path& file, FileNotes& notes,
                     ObservationContent& content);
void ReadSurveyFile(const std::filesystem::path& file, FileNotes& notes,
                    ObservationContent& content);

/// Reads the survey that belongs to an episode file, if there is one. Throws nothing: notes with
/// the episode file what is doubtful in the survey, or why it cannot be read.
void ReadSurveyOf(const std::filesystem::path& episodeFile, FileNotes& notes,
                  ObservationContent& content);

}  // namespace orvex
