#pragma once

#include <exception>
#include <string>
#include <utility>

#include "model/prompter.h"

namespace orvex {

/// Runs what a timer does. An error ends this tick only: the user is told which timer it was, and
/// the next tick runs normally.
template <typename Work>
void RunTick(Prompter& prompter, const std::string& timer, Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const std::exception& error) {
    prompter.Tell("An error ocurred in " + timer + ". Please contact the developer.", error.what());
  }
}

}  // namespace orvex
