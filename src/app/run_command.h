#pragma once

#include "app/command_line.h"

namespace orvex {

/// Carries out what needs no window, on the standard streams. Returns the exit code.
int RunCommand(const Request& request);

}  // namespace orvex
