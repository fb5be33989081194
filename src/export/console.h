#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

namespace orvex {

/// What a command ends with.
enum ExitCode : int {
  kDone = 0,
  kFound = 1,   ///< done, and found something to report
  kFailed = 2,  ///< could not be done, or not wholly
};

/// Where a command writes to.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool showsProgress = false;              ///< `err` is a terminal
  std::function<bool()> interrupted = {};  ///< whether the user wants it to end; may be none
};

/// What a count counts: "1 file", "2 files".
inline std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace orvex
