#pragma once

#include <functional>
#include <string>

namespace orvex {

class Prompter;

/// Runs `save` until it succeeds, or until the user, who is asked `question` and told what went
/// wrong, no longer wants to try. True when it has succeeded.
bool TryAgainAndAgain(Prompter& prompter, const std::string& question,
                      const std::function<void()>& save);

}  // namespace orvex
