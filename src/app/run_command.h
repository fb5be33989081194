#pragma once

#include "app/command_line.h"

namespace orvex {

/// Runs any request but the one for the window, on the standard streams. Returns the exit code.
int RunCommand(const Request& request);

}  // namespace orvex
