#pragma once

#include <filesystem>
#include <vector>

#include "agreement/agreement.h"
#include "commands/console.h"

namespace orvex {

class Storage;

/// `orvex agree`: how far two observers of a class agree, or the observers of a study.
struct AgreeCommand {
  std::vector<std::filesystem::path> sources = {};  ///< folders, lists, files, "-"
  ComparisonOptions options = {};
  bool json = false;  ///< one JSON object a line instead of the text
  // Of two observations.
  std::filesystem::path pairs = {};      ///< a table of pairs to take; empty to make them
  std::filesystem::path savePairs = {};  ///< where to write the pairs; empty for nowhere
  // Of a study.
  std::filesystem::path csv = {};  ///< the folder for its tables; empty for none

  /// True when the sources are two episode files, which are compared whatever class they are of.
  bool IsOfTwo() const;
};
/// Compares what the command names, and writes the agreement as text, or as JSON, to `console.out`.
/// What could not be read or written is told on `console.err`, and so, beside JSON, which has no
/// place for them, are remarks. kFailed when nothing was compared, or something is missing in it.
ExitCode RunAgree(const AgreeCommand& command, Storage& storage, const Console& console);

}  // namespace orvex
