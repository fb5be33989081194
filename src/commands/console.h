#pragma once

#include <functional>
#include <ostream>

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

}  // namespace orvex
