#pragma once

#include <functional>
#include <iostream>
#include <istream>
#include <ostream>

namespace orvex {

/// The exit code of a command.
enum ExitCode : int {
  kDone = 0,
  kFound = 1,   ///< done, and there is something to report
  kFailed = 2,  ///< not done, or only partly
};

/// The streams that a command writes to and reads a list from, and how it deals with the user.
struct Console {
  std::ostream& out;
  std::ostream& err;
  std::istream& in = std::cin;
  bool showsProgress = false;              ///< true when `err` is a terminal
  std::function<bool()> interrupted = {};  ///< true once the user wants to stop; may be empty
};

}  // namespace orvex
