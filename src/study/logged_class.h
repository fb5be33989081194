#pragma once

#include <filesystem>
#include <optional>

#include "reports/class_log.h"
#include "reports/class_picture.h"
#include "store/eps_file.h"
#include "study/file_numbers.h"

namespace orvex {

/// A class as its episode file and its session log have it.
struct LoggedClass {
  EpsObservation observation;
  std::optional<ClassLog> log;

  ClassPicture Picture() const;
};

/// The class of `observation` with the session log that belongs to `file`, its episode file. What
/// is wrong with the log is passed to `warn`, which may be empty.
LoggedClass LoggedClassOf(EpsObservation observation, const std::filesystem::path& file,
                          const Warn& warn);

/// Reads an episode file, and the session log that belongs to it, if there is one. What is doubtful
/// in them is passed to `warn`, which may be empty. Throws FileError and FormatError when the
/// episode file cannot be read.
LoggedClass ReadLoggedClass(const std::filesystem::path& file, const Warn& warn);

}  // namespace orvex
