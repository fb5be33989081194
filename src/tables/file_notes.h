#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "study/file_numbers.h"
#include "study/problem.h"

namespace orvex {

/// A warning about a file that could be read.
struct FileWarning {
  /// What it is about: an earlier version, a repair and the like, or a name that disagrees with the
  /// file's identity line, which casts doubt on whose rows these are.
  enum class About { content, name };
  About about = About::content;
  std::string text;
};

/// What is to be told of a file of which rows were made.
struct FileNotes {
  std::filesystem::path file;
  std::vector<FileWarning> warnings = {};
  std::optional<Problem> problem = {};        ///< why there are no rows, or not all
  std::optional<Problem> surveyProblem = {};  ///< why they lack the observation's survey

  bool HaveProblems() const { return problem || surveyProblem; }
  bool Empty() const { return warnings.empty() && !HaveProblems(); }

  /// Adds the warnings that it is called with; lasts no longer than these notes.
  Warn WarnsOf(FileWarning::About about) {
    return [this, about](const std::string& warning) { warnings.push_back({about, warning}); };
  }
};

}  // namespace orvex
