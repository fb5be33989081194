#pragma once

#include <exception>
#include <string>
#include <utility>

#include "desk/prompter.h"
#include "model/texts.h"

namespace orvex {

/// Runs the work of a timer. An error ends only this tick: the user is told which timer failed, and
/// the next tick runs normally. The timer rests while that message is open.
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
      prompter_.Tell(Say(Text::errorInTimer, {timer_}), error.what());
      telling_ = false;
    }
  }

 private:
  Prompter& prompter_;
  std::string timer_;
  bool telling_ = false;
};

}  // namespace orvex
