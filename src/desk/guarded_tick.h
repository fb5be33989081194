#pragma once

#include <exception>
#include <string>
#include <utility>

#include "desk/prompter.h"

namespace orvex {

/// Runs what a timer does. An error ends this tick only: the user is told which timer it was, and
/// the next tick runs normally. While the user has yet to read it, the timer rests.
class GuardedTick {
 public:
  GuardedTick(Prompter& prompter, std::string timer)
      : prompter_(prompter), timer_(std::move(timer)) {}

  template <typename Work>
  void Run(Work&& work) {
    if (telling_) return;
    try {
      std::forward<Work>(work)();
    } catch (const std::exception& error) {
      telling_ = true;
      prompter_.Tell("An error ocurred in " + timer_ + ". Please contact the developer.",
                     error.what());
      telling_ = false;
    }
  }

 private:
  Prompter& prompter_;
  std::string timer_;
  bool telling_ = false;
};

}  // namespace orvex
